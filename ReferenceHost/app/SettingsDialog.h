// The host's settings, which take effect at its next start.

#pragma once

#include "api/HostSession.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace refhost {

class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    /// Shows `settings`, those stored last; `inEffect` are the ones this start runs with.
    SettingsDialog(const HostSettings &settings, const HostSettings &inEffect, QWidget *parent = nullptr);

    /// What the user has chosen.
    HostSettings settings() const;

    /// Whether the user wants the host to start again now. The dialog is accepted then.
    bool wantsRestart() const { return m_wantsRestart; }

private:
    void chooseHelpFile();
    void showWhatIsEnabled();

    const HostSettings m_inEffect;
    QComboBox *m_language;
    QComboBox *m_theme;
    QRadioButton *m_webHelp;
    QRadioButton *m_helpFileHelp;
    QLineEdit *m_webLink;
    QLineEdit *m_helpFile;
    QPushButton *m_browse;
    QLabel *m_note;
    QPushButton *m_restart;
    bool m_wantsRestart = false;
};

} // namespace refhost
