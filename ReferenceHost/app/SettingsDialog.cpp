// Lets the user choose language, theme and help. The form is SettingsDialog.ui.

#include "app/SettingsDialog.h"

#include "app/HostSettingsStore.h"
#include "ui_SettingsDialog.h"

#include <QFileDialog>
#include <QPushButton>

namespace refhost {

SettingsDialog::SettingsDialog(const HostSettings &settings, const HostSettings &inEffect, QWidget *parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::SettingsDialog>())
    , m_inEffect(inEffect)
{
    m_form->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_restart = m_form->buttons->addButton(QStringLiteral("OK and &restart"), QDialogButtonBox::ApplyRole);
    m_restart->setObjectName(QStringLiteral("restart"));

    QComboBox &language = *m_form->language;
    for (const HostLanguage &known : hostLanguages())
        language.addItem(QLatin1String(known.name), known.value);
    if (language.findData(settings.language) < 0) // a value without a name is kept
        language.addItem(QStringLiteral("Language %1").arg(settings.language), settings.language);
    language.setCurrentIndex(language.findData(settings.language));
    m_form->theme->setCurrentIndex(settings.theme == 0 ? 0 : 1);
    (settings.webHelp ? m_form->webHelp : m_form->helpFileHelp)->setChecked(true);
    m_form->webLink->setText(settings.webLink);
    m_form->helpFile->setText(settings.helpFile);

    for (QComboBox *box : {m_form->language, m_form->theme})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
                &SettingsDialog::showWhatIsEnabled);
    for (QLineEdit *edit : {m_form->webLink, m_form->helpFile})
        connect(edit, &QLineEdit::textChanged, this, &SettingsDialog::showWhatIsEnabled);
    connect(m_form->webHelp, &QRadioButton::toggled, this, &SettingsDialog::showWhatIsEnabled);
    connect(m_form->browse, &QPushButton::clicked, this, &SettingsDialog::chooseHelpFile);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_restart, &QPushButton::clicked, this, [this] {
        m_wantsRestart = true;
        accept();
    });
    showWhatIsEnabled();
}

SettingsDialog::~SettingsDialog() = default;

HostSettings SettingsDialog::settings() const
{
    HostSettings chosen = m_inEffect;
    chosen.language = m_form->language->currentData().toInt();
    chosen.theme = m_form->theme->currentIndex();
    chosen.webHelp = m_form->webHelp->isChecked();
    chosen.webLink = m_form->webLink->text();
    chosen.helpFile = m_form->helpFile->text();
    return chosen;
}

void SettingsDialog::chooseHelpFile()
{
    const QString file =
        QFileDialog::getOpenFileName(this, QStringLiteral("Help file"), m_form->helpFile->text(),
                                     QStringLiteral("Help files (*.chm);;All files (*)"));
    if (!file.isEmpty())
        m_form->helpFile->setText(file);
}

void SettingsDialog::showWhatIsEnabled()
{
    m_form->webLink->setEnabled(m_form->webHelp->isChecked());
    m_form->helpFile->setEnabled(m_form->helpFileHelp->isChecked());
    m_form->browse->setEnabled(m_form->helpFileHelp->isChecked());
    m_restart->setEnabled(!(settings() == m_inEffect));
}

} // namespace refhost
