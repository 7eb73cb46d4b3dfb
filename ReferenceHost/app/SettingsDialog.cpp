// Lets the user choose language, theme and help, and says when that takes effect.

#include "app/SettingsDialog.h"

#include "app/HostSettingsStore.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace refhost {

namespace {

void selectData(QComboBox &box, int value)
{
    box.setCurrentIndex(box.findData(value));
}

} // namespace

SettingsDialog::SettingsDialog(const HostSettings &settings, const HostSettings &inEffect, QWidget *parent)
    : QDialog(parent)
    , m_inEffect(inEffect)
    , m_language(new QComboBox(this))
    , m_theme(new QComboBox(this))
    , m_webHelp(new QRadioButton(QStringLiteral("On the &web")))
    , m_helpFileHelp(new QRadioButton(QStringLiteral("In a help &file")))
    , m_webLink(new QLineEdit(settings.webLink))
    , m_helpFile(new QLineEdit(settings.helpFile))
    , m_browse(new QPushButton(QStringLiteral("&Browse...")))
    , m_note(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Options"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_language->setObjectName(QStringLiteral("language"));
    m_theme->setObjectName(QStringLiteral("theme"));
    m_webHelp->setObjectName(QStringLiteral("webHelp"));
    m_helpFileHelp->setObjectName(QStringLiteral("helpFileHelp"));
    m_note->setObjectName(QStringLiteral("note"));

    for (const HostLanguage &language : hostLanguages())
        m_language->addItem(QLatin1String(language.name), language.value);
    if (m_language->findData(settings.language) < 0) // a value this host has no name for is kept
        m_language->addItem(QStringLiteral("Language %1").arg(settings.language), settings.language);
    selectData(*m_language, settings.language);
    m_theme->addItem(QStringLiteral("Light"), 0);
    m_theme->addItem(QStringLiteral("Dark"), 1);
    selectData(*m_theme, settings.theme == 0 ? 0 : 1);
    (settings.webHelp ? m_webHelp : m_helpFileHelp)->setChecked(true);

    auto *appearance = new QFormLayout;
    appearance->addRow(QStringLiteral("&Language of add-ins:"), m_language);
    appearance->addRow(QStringLiteral("&Theme:"), m_theme);

    auto *help = new QGroupBox(QStringLiteral("Help"));
    auto *helpGrid = new QGridLayout(help);
    helpGrid->addWidget(m_webHelp, 0, 0);
    helpGrid->addWidget(m_webLink, 0, 1, 1, 2);
    helpGrid->addWidget(m_helpFileHelp, 1, 0);
    helpGrid->addWidget(m_helpFile, 1, 1);
    helpGrid->addWidget(m_browse, 1, 2);
    m_webLink->setMinimumWidth(280);

    m_note->setWordWrap(true);
    m_note->setText(QStringLiteral("Changes are stored and take effect the next time the host starts."));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_restart = buttons->addButton(QStringLiteral("OK and &restart"), QDialogButtonBox::ApplyRole);
    m_restart->setObjectName(QStringLiteral("restart"));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(appearance);
    layout->addWidget(help);
    layout->addWidget(m_note);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    for (QComboBox *box : {m_language, m_theme})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
                &SettingsDialog::showWhatIsEnabled);
    for (QLineEdit *edit : {m_webLink, m_helpFile})
        connect(edit, &QLineEdit::textChanged, this, &SettingsDialog::showWhatIsEnabled);
    connect(m_webHelp, &QRadioButton::toggled, this, &SettingsDialog::showWhatIsEnabled);
    connect(m_browse, &QPushButton::clicked, this, &SettingsDialog::chooseHelpFile);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_restart, &QPushButton::clicked, this, [this] {
        m_wantsRestart = true;
        accept();
    });
    showWhatIsEnabled();
}

HostSettings SettingsDialog::settings() const
{
    HostSettings chosen = m_inEffect;
    chosen.language = m_language->currentData().toInt();
    chosen.theme = m_theme->currentData().toInt();
    chosen.webHelp = m_webHelp->isChecked();
    chosen.webLink = m_webLink->text();
    chosen.helpFile = m_helpFile->text();
    return chosen;
}

void SettingsDialog::chooseHelpFile()
{
    const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("Help file"), m_helpFile->text(),
                                                      QStringLiteral("Help files (*.chm);;All files (*)"));
    if (!file.isEmpty())
        m_helpFile->setText(file);
}

void SettingsDialog::showWhatIsEnabled()
{
    m_webLink->setEnabled(m_webHelp->isChecked());
    m_helpFile->setEnabled(m_helpFileHelp->isChecked());
    m_browse->setEnabled(m_helpFileHelp->isChecked());
    m_restart->setEnabled(!isSame(settings(), m_inEffect));
}

} // namespace refhost
