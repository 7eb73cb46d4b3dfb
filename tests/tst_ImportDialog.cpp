// The import dialog by itself: its form in every language and both themes, and what each control does.

#include "JournalCalls.h"
#include "ModalAnswers.h"
#include "PrivateSettings.h"
#include "ShownDialog.h"
#include "TableOf.h"

#include "DarkWindowFrame.h"

#include <QtWidgets>

#include <stdexcept>

namespace {

void chooseUnit(const ShownDialog &shown, const QString &name)
{
    auto *units = shown.widget<QComboBox>("units_comboBox");
    units->setCurrentIndex(units->findText(name));
}

} // namespace

class tst_ImportDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void slotsHaveTheirPlaces();
    void freshDialog();
    void everyLanguage_data();
    void everyLanguage();
    void themeOption_data();
    void themeOption();
    void themes();
    void hostThrowsWhenAskedForTheTheme();
    void specifyLater();
    void modesKeepTheirValues();
    void keys_data();
    void keys();
    void enterPressesOkOnly();
    void factors();
    void help_data();
    void help();
    void helpControls();
    void darkFrame();

private:
    const QTemporaryDir m_settings;
};

void tst_ImportDialog::initTestCase()
{
    QCOMPARE(KVImportSVGAddinApplication::m_bDarkMode, -1);
    keepSettingsIn(m_settings.path());
    // 9 points at 96 dots per inch: what desktops show, whatever this platform's default.
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
}

void tst_ImportDialog::slotsHaveTheirPlaces()
{
    QByteArray names;
    const QMetaObject &type = mainWindow::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names += type.method(i).name() + ' ';
    QCOMPARE(names,
             QByteArray("OK Browse Cancel Specify_checked_clicked scale_specify_checkBox_clicked "
                        "rotation_specify_checkBox_clicked On_Abort_Button_clicked "
                        "On_global_settings_checkbox_clicked On_explode_checkBox_checked "
                        "On_master_unit_radioButton_clicked On_sub_unit_radioButton_clicked "
                        "On_dest_path_browse_pushButton On_source_path_browse_pushButton "
                        "On_start_pushButton_clicked On_global_set_checkBox_clicked "
                        "On_treeeWidget_checkBox_clicked On_checkBox2_checked On_help_clicked "
                        "On_treeItem_clicked "));
}

void tst_ImportDialog::freshDialog()
{
    const ShownDialog shown;
    QStringList off;
    for (const QWidget *control : shown.dialog->findChildren<QWidget *>()) {
        if (!control->isEnabled())
            off.append(control->objectName());
    }
    off.sort();
    QCOMPARE(off.join(' '),
             QString("OK_pushButton abort_button checkBox_2 convert_factor_lineEdit master_unit_radioButton "
                     "radioButton_3 radioButton_4 start_pushButton sub_units_radioButton "
                     "x_label x_lineEdit y_label y_lineEdit z_label z_lineEdit"));
    QVERIFY(!shown.widget("progressBar")->isVisible());
    QVERIFY2(!shown.dialog->testAttribute(Qt::WA_QuitOnClose), "the host would end with the dialog");
}

void tst_ImportDialog::everyLanguage_data()
{
    const auto row = tableOf<QString>("file");
    const QStringList files = QDir(QStringLiteral(":/translation")).entryList();
    QCOMPARE(files.size(), 14);
    for (const QString &file : files)
        row(qPrintable(file), file);
}

void tst_ImportDialog::everyLanguage()
{
    QFETCH(QString, file);

    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        const ShownDialog shown(theme, file);
        QVERIFY2(shown.value("units_comboBox", "currentIndex") == 1, "inches are chosen");
        for (const auto &[mode, panel] :
             {std::pair("radioButton", "insert_block"), {"radioButton_2", "batch_processing"}}) {
            shown.click(mode);
            shown.widget("progressBar")->show(); // as during a run
            shown.dialog->layout()->activate();
            const QSize least = shown.dialog->layout()->totalMinimumSize();
            QVERIFY2(least.width() <= 550 && least.height() <= 400,
                     qPrintable(QStringLiteral("needs %1 x %2").arg(least.width()).arg(least.height())));
            QVERIFY2(shown.widget("widget")->geometry().bottom() < shown.widget(panel)->geometry().top(),
                     "the mode switch stands above the panel");
            QString keys;
            for (const QWidget *control : shown.dialog->findChildren<QWidget *>()) {
                if (control->isVisible())
                    keys += control->property("text").toString().section('&', 1, 1).left(1).toLower();
            }
            // The source texts have two that answer to X.
            QVERIFY2(file.contains("english") || QSet<QChar>(keys.begin(), keys.end()).size() == keys.size(),
                     qPrintable("keys that answer: " + keys));
        }
        const auto *units = shown.widget<QComboBox>("units_comboBox");
        for (int i = 0; i < 19; ++i)
            QVERIFY2(units->findText(units->itemText(i)) == i, "the dialog knows a unit by its text");
        const auto *tree = shown.widget<QTreeWidget>("treeWidget");
        QVERIFY2(tree->viewport()->height() >= 3 * tree->fontMetrics().height(), "three files are seen");
    }
}

void tst_ImportDialog::themeOption_data()
{
    const auto row = tableOf<QString, QString>("options", "icons"); // at one connect after the other
    row("0 is light", "0", "light, asked once");
    row("1 is dark", "1", "dark, asked once");
    row("any other value is dark", "7", "dark, asked once");
    row("-1 is dark and asked for at each use", "-1", "dark, asked again");
    row("a change is not noticed by a library that stays loaded", "0 1", "light light, asked once");
    row("after -1 the next value counts", "-1 0", "dark light, asked again");
    row("a host that does not tell is light, for good", "fails 1", "light light, asked once");
}

void tst_ImportDialog::themeOption()
{
    QFETCH(QString, options);
    QFETCH(QString, icons);

    KVImportSVGAddinApplication::m_bDarkMode = -1; // as in a library just loaded
    QStringList actual;
    int questions = 0;
    for (const QString &option : options.split(' ')) {
        RecordingHost host;
        host.session.settings.theme = option.toLong();
        if (option == "fails")
            host.session.faults.failEvery("kvApplicationOptions_c::GetApplicationOptionInt16");
        QVERIFY(connectToKorvane(0, host.application()) && disconnectFromKorvane());
        const QString command = callsOf(host.calls, {"CreateUserCommand"}).value(0);
        actual.append(command.count("/DarkMode/ImportSVG-32.svg") == 2 ? "dark" : "light");
        questions += callsOf(host.calls, {"GetApplicationOptionInt16"}).filter("Int16 48").size();
    }
    QCOMPARE(actual.join(' ') + (questions == 1 ? ", asked once" : ", asked again"), icons);
}

void tst_ImportDialog::themes()
{
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        const ShownDialog shown{theme};
        const QString file = theme == Theme::Light ? "%1_32x-32.svg" : "DarkMode/%1-32.svg";
        for (const QString row : {"OK_pushButton OK", "cancel_button cancel", "cancel_button_2 cancel",
                                  "help_button help", "abort_button Delete"}) {
            const QIcon icon(":/KVImportSVGAddin/Resource/" + file.arg(row.section(' ', 1)));
            const auto *button = shown.widget<QPushButton>(row.section(' ', 0, 0));
            QVERIFY2(button->icon().pixmap(32).toImage() == icon.pixmap(32).toImage(), qPrintable(row));
        }
        QCOMPARE(shown.dialog->styleSheet().isEmpty(), theme == Theme::Light);
        ModalAnswers answers;
        answers.boxSeen = [&](const QMessageBox &box) {
            QCOMPARE(box.styleSheet(), shown.dialog->styleSheet());
        };
        answers.press(QMessageBox::Yes);
        shown.window->On_Abort_Button_clicked();
    }
}

void tst_ImportDialog::hostThrowsWhenAskedForTheTheme()
{
    ShownDialog shown;
    KVImportSVGAddinApplication::m_bDarkMode = -1; // asked for at each use
    shown.host.session.journal().begin([](const QByteArray & /*line*/) { throw std::runtime_error("no"); });
    shown.click("specify_checkBox");
    QVERIFY(shown.isEnabled("x_lineEdit"));

    ModalAnswers answers;
    answers.press(QMessageBox::No);
    shown.window->On_Abort_Button_clicked();
    answers.press(QMessageBox::Ok);
    shown.window->On_start_pushButton_clicked();
    QVERIFY2(answers.messages.size() == 2, "both are shown");
}

void tst_ImportDialog::specifyLater()
{
    for (const QString group : {"specify_checkBox x_label y_label z_label x_lineEdit y_lineEdit z_lineEdit",
                                "scale_specify_checkBox factor_label scale_lineEdit",
                                "rotation_specify_checkBox angel_label angle_lineEdit"}) {
        for (const Theme theme : {Theme::Light, Theme::Dark}) {
            const ShownDialog shown{theme};
            for (int clicks = 0; clicks < 3; ++clicks) {
                const bool later = shown.isChecked(group.section(' ', 0, 0));
                const QString colour = later ? "176, 196, 222" : "255, 255, 255";
                const bool isColoured = theme == Theme::Light && (later || clicks > 0);
                for (const QString &name : group.split(' ').mid(1)) {
                    QVERIFY2(shown.isEnabled(name) != later, qPrintable(name));
                    QCOMPARE(shown.value(name, "styleSheet").toString(),
                             isColoured && name.endsWith("lineEdit")
                                 ? "background-color : rgb(" + colour + ')'
                                 : QString());
                }
                shown.click(group.section(' ', 0, 0));
            }
        }
    }
}

void tst_ImportDialog::modesKeepTheirValues()
{
    const ShownDialog shown;
    shown.type("angle_lineEdit", "45");
    for (const bool global : {true, false}) {
        shown.click("radioButton_2");
        QVERIFY(shown.widget("batch_processing")->isVisible() && !shown.widget("insert_block")->isVisible());
        shown.click("global_set_checkBox");
        QVERIFY(shown.isEnabled("radioButton_3") == global && shown.isEnabled("radioButton_4") == global);
        QVERIFY(shown.isChecked("radioButton_3"));

        shown.click("radioButton");
        QVERIFY(!shown.widget("batch_processing")->isVisible() && shown.widget("insert_block")->isVisible());
        QCOMPARE(shown.text("angle_lineEdit"), QString("45"));
        QCOMPARE(shown.isChecked("global_set_checkBox"), global);
    }
}

void tst_ImportDialog::keys_data()
{
    // Keys from the focus given, and the controls that have the focus after each.
    const auto row = tableOf<QString, QString, QString>("from", "keys", "controls");
    row("Tab goes through single import row by row", "radioButton", QString("Tab ").repeated(15),
        "explode_checkBox browse_pushButton path_lineEdit listWidget x_lineEdit y_lineEdit z_lineEdit "
        "specify_checkBox scale_lineEdit scale_specify_checkBox angle_lineEdit rotation_specify_checkBox "
        "master_unit_lineEdit sub_unit_lineEdit units_comboBox");
    row("Tab goes through batch processing top down", "radioButton_2", QString("Tab ").repeated(9),
        "explode_checkBox source_path_lineEdit source_path_browse_pushButton dest_path_lineEdit "
        "dest_path_browse_pushButton treeWidget global_set_checkBox cancel_button_2 help_button");
    // X is shared with "Explode text node": the first press goes to one, the next to the other.
    row("accelerators reach their fields", "cancel_button", "Alt+X Alt+X Alt+Y Alt+Z Alt+F Alt+A Alt+T",
        "explode_checkBox x_lineEdit y_lineEdit z_lineEdit scale_lineEdit angle_lineEdit units_comboBox");
}

void tst_ImportDialog::keys()
{
    QFETCH(QString, from);
    QFETCH(QString, keys);
    QFETCH(QString, controls);

    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.click("specify_checkBox");
    if (from.startsWith("radioButton"))
        shown.click(from);
    shown.widget(from)->setFocus();
    QStringList actual;
    for (const QString &name : keys.split(' ', Qt::SkipEmptyParts)) {
        const int key = QKeySequence(name)[0];
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key & ~Qt::KeyboardModifierMask),
                        Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
        actual.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(actual.join(' '), controls);
}

void tst_ImportDialog::enterPressesOkOnly()
{
    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.widget("help_button_2")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY2(shown.dialog->isVisible(), "OK was disabled");
    QVERIFY(callsOf(shown.host.calls, {"OpenWebHelp"}).isEmpty());

    shown.widget("OK_pushButton")->setEnabled(true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!shown.dialog->isVisible());
}

void tst_ImportDialog::factors()
{
    const ShownDialog shown;
    const auto *units = shown.widget<QComboBox>("units_comboBox");
    chooseUnit(shown, "Parsecs");
    QVERIFY2(shown.text("convert_factor_lineEdit") == "1", "nothing is converted before a file is chosen");

    const auto factor = [&](const QString &unitOfFile, const QString &name) {
        shown.widget(unitOfFile)->setEnabled(true);
        shown.click(unitOfFile);
        chooseUnit(shown, name == "Parsecs" ? "Miles" : "Parsecs"); // another factor than the next
        chooseUnit(shown, name);
        return shown.text("convert_factor_lineEdit");
    };
    const QString feet = "master_unit_radioButton";
    const QString inches = "sub_units_radioButton";
    for (int i = 1; i < units->count(); ++i) {
        const QString name = units->itemText(i);
        const double quotient = factor(feet, name).toDouble() / factor(inches, name).toDouble();
        QVERIFY2(std::abs(quotient - 12) < 1e-4, qPrintable(name + ": a foot has 12 inches"));
    }
    QCOMPARE(factor(feet, "Unitless") + factor(inches, "Unitless"), QString("11"));
    QCOMPARE(factor(feet, "Milimeters"), QString("304.800097536"));
    QCOMPARE(factor(inches, "Microinches"), QString("1e+06"));
    QCOMPARE(factor(inches, "Astronomical"), QString("1.69333e-13"));

    // A name that differs from the table's matches no row: the field keeps what it showed.
    const ShownDialog french(Theme::Light, "ImportSVG_french.qm");
    french.widget(feet)->setEnabled(true);
    french.click(feet);
    chooseUnit(french, "Miles");
    chooseUnit(french, "Pieds");
    QCOMPARE(french.text("convert_factor_lineEdit"), QString("0.000189394"));
}

void tst_ImportDialog::help_data()
{
    const auto row = tableOf<QByteArray, QString, QString>("failing", "hostFile", "opened");
    row("web help alone, by the host's link as it is", {}, "Korvane.chm",
        "https://help.example/a b?P=16&L=English&V=2019&C=KorvaneSW&I=15010");
    const QByteArray web = "kvApplication_c::IsWebHelpEnabled"; // where it fails, the host's file is opened
    row("the add-in's file beside the host's", web, "C:\\Korvane\\Korvane.chm",
        "15010 C:\\Korvane\\KorvaneSW.chm");
    row("every occurrence is replaced", web, "/Korvane.chm/Korvane.chm",
        "15010 /KorvaneSW.chm/KorvaneSW.chm");
    row("another case stays", web, "C:/korvane.chm", "15010 C:/korvane.chm");
    row("no file named", web, {}, "15010 ");
    row("no system files", "kvApplication_c::GetSystemFiles", "Korvane.chm", "15010 ");
}

void tst_ImportDialog::help()
{
    QFETCH(QByteArray, failing);
    QFETCH(QString, hostFile);
    QFETCH(QString, opened);

    ShownDialog shown;
    shown.host.session.settings.webLink = "https://help.example/a b";
    shown.host.session.settings.webHelp = !failing.contains("SystemFiles");
    shown.host.session.settings.helpFile = hostFile;
    shown.host.session.faults.failEvery(failing);
    QStringList actual;
    shown.host.session.services.openWebHelp = [&](const QString &address) {
        actual.append(address);
        return true;
    };
    shown.host.session.services.openHelpFile = [&](long topic, const QString &path) {
        actual.append(QString::number(topic) + ' ' + path);
        return false;
    };
    shown.click("help_button_2");
    QCOMPARE(actual, QStringList{opened});
}

void tst_ImportDialog::helpControls()
{
    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.click("help_button_2");
    QTest::keyClick(shown.widget("scale_lineEdit"), Qt::Key_F1);
    QCOMPARE(callsOf(shown.host.calls, {"OpenWebHelp"}).size(), 2);
    shown.click("radioButton_2");
    shown.click("help_button");
    QTest::keyClick(shown.widget("treeWidget"), Qt::Key_F1);
    QCOMPARE(callsOf(shown.host.calls, {"OpenWebHelp"}).size(), 4);
}

void tst_ImportDialog::darkFrame()
{
    // The older number of the attribute is tried when the newer is refused, whatever becomes of it.
    for (const long result : {0L, 1L, -1L}) {
        QList<unsigned> actual;
        setDarkFrameAttribute([&](unsigned attribute) {
            actual.append(attribute);
            return result;
        });
        QCOMPARE(actual, (result == 0 ? QList<unsigned>{20} : QList<unsigned>{20, 19}));
    }
}

QTEST_MAIN(tst_ImportDialog)

#include "tst_ImportDialog.moc"
