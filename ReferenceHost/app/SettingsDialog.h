// The host's settings, which take effect at its next start.

#pragma once

#include "api/HostSession.h"

#include <QDialog>

#include <memory>

class QPushButton;

namespace Ui {
class SettingsDialog;
}

namespace refhost {

class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    /// Shows the stored `settings`. `inEffect` are those that the running host started with.
    SettingsDialog(const HostSettings &settings, const HostSettings &inEffect, QWidget *parent = nullptr);
    ~SettingsDialog() override;

    /// The user's choice.
    HostSettings settings() const;

    /// Whether the user wants the host to start again now. The dialog is then accepted.
    bool wantsRestart() const { return m_wantsRestart; }

private:
    void chooseHelpFile();
    void showWhatIsEnabled();

    const std::unique_ptr<Ui::SettingsDialog> m_form;
    const HostSettings m_inEffect;
    QPushButton *m_restart;
    bool m_wantsRestart = false;
};

} // namespace refhost
