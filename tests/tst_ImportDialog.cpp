// The import dialog through its own widgets: what it shows at the start and what each control does.

#include "ModalAnswers.h"
#include "ShownDialog.h"

#include "DarkWindowFrame.h"

#include <QtTest>
#include <QtWidgets>

#include <stdexcept>

namespace {

const QString laterColor = QStringLiteral("background-color : rgb(176, 196, 222)");
const QString editableColor = QStringLiteral("background-color : rgb(255, 255, 255)");

QStringList languageFiles()
{
    return QDir(QStringLiteral(":/translation")).entryList();
}

} // namespace

class tst_ImportDialog : public QObject {
    Q_OBJECT

private slots:
    void slotsHaveTheirPlaces();
    void initialState_data();
    void initialState();
    void theme_data();
    void theme();
    void everyLanguage_data();
    void everyLanguage();
    void tabGoesThroughThePanel_data();
    void tabGoesThroughThePanel();
    void acceleratorsReachTheirFields_data();
    void acceleratorsReachTheirFields();

    void modesKeepTheirValues();
    void specifyLater_data();
    void specifyLater();
    void hostThrowsWhenAskedForTheTheme();
    void globalSettings();
    void closing_data();
    void closing();
    void enterPressesOkOnly();

    void factors_data();
    void factors();
    void factorBeforeAFileIsChosen();
    void webHelp_data();
    void webHelp();
    void helpFile_data();
    void helpFile();
    void helpControls_data();
    void helpControls();
    void darkFrame_data();
    void darkFrame();
};

void tst_ImportDialog::slotsHaveTheirPlaces()
{
    const QByteArrayList names = {
        "OK()",
        "Browse()",
        "Cancel()",
        "Specify_checked_clicked()",
        "scale_specify_checkBox_clicked()",
        "rotation_specify_checkBox_clicked()",
        "On_Abort_Button_clicked()",
        "On_global_settings_checkbox_clicked()",
        "On_explode_checkBox_checked(bool)",
        "On_master_unit_radioButton_clicked()",
        "On_sub_unit_radioButton_clicked()",
        "On_dest_path_browse_pushButton()",
        "On_source_path_browse_pushButton()",
        "On_start_pushButton_clicked()",
        "On_global_set_checkBox_clicked()",
        "On_treeeWidget_checkBox_clicked(QTreeWidgetItem*)",
        "On_checkBox2_checked()",
        "On_help_clicked()",
        "On_treeItem_clicked()",
    };
    QByteArrayList actual;
    const QMetaObject &type = mainWindow::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        actual.append(type.method(i).methodSignature());
    QCOMPARE(actual, names);
}

void tst_ImportDialog::initialState_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariantMap>("properties");

    const auto add = [](const char *name, const QVariantMap &properties) {
        QTest::newRow(name) << QString(name) << properties;
    };
    const QVariantMap off = {{"enabled", false}};
    const QVariantMap on = {{"enabled", true}};
    const auto with = [](QVariantMap map, const char *key, const QVariant &value) {
        map.insert(key, value);
        return map;
    };
    const QVariantMap shownOnly = {
        {"text", ""}, {"readOnly", true}, {"styleSheet", "background-color : transparent"}};
    const QVariantMap xyz = with(off, "text", "0.0000");

    add("insert_block", {{"visible", true}});
    add("batch_processing", {{"visible", false}});
    add("radioButton", {{"text", "&Insert as Block"}, {"checked", true}});
    add("radioButton_2", {{"text", "&Batch Processing"}, {"checked", false}});
    add("explode_checkBox", {{"text", "Explode te&xt node to text element "}, {"checked", false}});
    add("name_lineEdit", with(shownOnly, "focusPolicy", Qt::NoFocus));
    for (const char *name : {"path_lineEdit", "source_path_lineEdit", "dest_path_lineEdit",
                             "master_unit_lineEdit", "sub_unit_lineEdit"})
        add(name, shownOnly);
    add("browse_pushButton", with(on, "text", "Bro&wse..."));
    add("listWidget",
        {{"styleSheet", "font-family: Arial;font-style: normal;font-size: 10pt;"},
         {"sortingEnabled", true},
         {"currentRow", -1},
         {"count", 0}});
    for (const auto &[name, text] : {std::pair("x_label", "&X :"), {"y_label", "&Y :"}, {"z_label", "&Z :"}})
        add(name, with(off, "text", text));
    for (const char *name : {"x_lineEdit", "y_lineEdit", "z_lineEdit"})
        add(name, xyz);
    add("specify_checkBox", {{"text", "&Specify later"}, {"checked", true}});
    add("factor_label", with(on, "text", "&Factor :"));
    add("scale_lineEdit", with(on, "text", "1.0000"));
    add("scale_specify_checkBox", {{"text", "Specify &later"}, {"checked", false}});
    add("angel_label", with(on, "text", "&Angle :"));
    add("angle_lineEdit", with(on, "text", "0.0000"));
    add("rotation_specify_checkBox", {{"text", "Sp&ecify later"}, {"checked", false}});
    for (const char *name : {"master_unit_radioButton", "radioButton_3"})
        add(name, with(with(off, "text", "&Master units"), "checked", name == QString("radioButton_3")));
    for (const char *name : {"sub_units_radioButton", "radioButton_4"})
        add(name, with(with(off, "text", "S&ub units"), "checked", false));
    add("units_comboBox", {{"currentText", "Inches"}, {"currentIndex", 1}, {"count", 19}});
    add("convert_factor_lineEdit", with(off, "text", "1"));
    add("OK_pushButton", with(off, "text", "OK"));
    add("cancel_button", with(on, "text", "Cancel"));
    add("help_button_2", with(on, "text", "Help"));
    add("source_path_browse_pushButton", with(on, "text", "Bro&wse..."));
    add("dest_path_browse_pushButton", with(on, "text", "Brow&se..."));
    add("treeWidget", {{"columnCount", 1}});
    add("checkBox_2", with(with(off, "text", "Select &all"), "checked", false));
    add("global_set_checkBox", {{"text", "&Use global settings"}, {"checked", false}});
    add("abort_button", with(off, "text", "Abort"));
    add("start_pushButton", with(off, "text", "Start"));
    add("help_button", with(on, "text", "Help"));
    add("cancel_button_2", with(on, "text", "Close"));
    add("progressBar", {{"visible", false}, {"value", 0}, {"alignment", int(Qt::AlignCenter)}});

    for (const char *caption :
         {"mode_label=Mode", "svg_label=SVG file", "name_label=Name :", "path_label=Path :",
          "select_model_label=Select a design model", "position_label=Position", "scale_label=Scale",
          "rotation_label=Rotation", "file_unit_label=SVG file units", "convert_label=Convert drawing to",
          "units_label=Uni&ts :", "convert_factor_label=Factor :", "svg_label_2=SVG files",
          "name_label_2=Source Path :", "path_label_2=Destination Path :", "label=SVG file units"})
        add(qPrintable(QString(caption).section('=', 0, 0)),
            with(on, "text", QString(caption).section('=', 1)));
    const QVariantMap horizontal = {{"frameShape", int(QFrame::HLine)}};
    for (const char *name : {"line", "line_2", "line_3", "line_4", "desing_model_line", "position_line",
                             "scale_line", "rotation_line", "convert_line"})
        add(name, horizontal);
    add("file_unit_line", with(with(horizontal, "minimumHeight", 3), "maximumHeight", 3));
    for (const char *name :
         {"main_window_gridLayout", "widget_gridLayout", "mode_gridLayout", "mode_gridLayout_2",
          "mode_gridLayout_3", "gridLayout", "gridLayout_2", "gridLayout_3", "select_design_gridLayout",
          "position_gridLayout", "scale_gridLayout", "rotation_gridLayout", "unit_gridLayout",
          "convert_dwg_gridLayout", "button_gridLayout", "file_unit_gridLayout_2", "button_gridLayout_2"})
        add(name, {}); // it is there
}

void tst_ImportDialog::initialState()
{
    QFETCH(QString, name);
    QFETCH(QVariantMap, properties);

    const ShownDialog shown;
    const auto *object = shown.dialog->findChild<QObject *>(name); // a layout is no widget
    QVERIFY(object);
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        QCOMPARE(object->property(property.key().toLatin1()).toString(), property.value().toString());
}

void tst_ImportDialog::theme_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<QString>("iconFile");
    QTest::addColumn<QString>("positionColor");

    QTest::newRow("light") << int(Theme::Light) << "%1_32x-32.svg" << laterColor;
    QTest::newRow("dark") << int(Theme::Dark) << "DarkMode/%1-32.svg" << QString();
}

void tst_ImportDialog::theme()
{
    QFETCH(int, theme);
    QFETCH(QString, iconFile);
    QFETCH(QString, positionColor);

    const ShownDialog shown{static_cast<Theme>(theme)};
    const QHash<QString, QString> icons = {{"OK_pushButton", "OK"},
                                           {"cancel_button", "cancel"},
                                           {"cancel_button_2", "cancel"},
                                           {"help_button", "help"},
                                           {"abort_button", "Delete"}};
    for (const QPushButton *button : shown.dialog->findChildren<QPushButton *>()) {
        const QString name = button->objectName();
        const QImage icon = button->icon().pixmap(32).toImage();
        const QIcon file(":/KVImportSVGAddin/Resource/" + iconFile.arg(icons.value(name)));
        QVERIFY2(icon.isNull() != icons.contains(name) && icon == file.pixmap(32).toImage(),
                 qPrintable(name));
    }
    QCOMPARE(shown.value("y_lineEdit", "styleSheet").toString(), positionColor);
    QCOMPARE(shown.dialog->styleSheet().isEmpty(), static_cast<Theme>(theme) == Theme::Light);

    ModalAnswers answers;
    answers.boxSeen = [&](const QMessageBox &box) { QCOMPARE(box.styleSheet(), shown.dialog->styleSheet()); };
    answers.press(QMessageBox::Yes);
    shown.window->On_Abort_Button_clicked();

    QCOMPARE(shown.dialog->windowTitle(), QString("SVG Import"));
    QVERIFY(shown.dialog->isModal());
    QCOMPARE(shown.dialog->geometry(), QRect(100, 250, 550, 400));
    QVERIFY(!shown.dialog->testAttribute(Qt::WA_QuitOnClose));
    QVERIFY(!(shown.dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QVERIFY(shown.dialog->windowFlags() & Qt::WindowCloseButtonHint);
}

void tst_ImportDialog::everyLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("theme");

    QCOMPARE(languageFiles().size(), 14);
    for (const QString &file : languageFiles()) {
        QTest::newRow(qPrintable(file + ", light")) << file << int(Theme::Light);
        QTest::newRow(qPrintable(file + ", dark")) << file << int(Theme::Dark);
    }
}

void tst_ImportDialog::everyLanguage()
{
    QFETCH(QString, language);
    QFETCH(int, theme);

    const ShownDialog shown(static_cast<Theme>(theme), language);
    QVERIFY2(shown.value("units_comboBox", "currentIndex") == 1, "inches are chosen");
    for (const char *mode : {"radioButton", "radioButton_2"}) {
        shown.click(mode);
        shown.widget("progressBar")->show(); // as during a run
        shown.dialog->layout()->activate();
        const QSize least = shown.dialog->layout()->totalMinimumSize();
        QVERIFY2(least.width() <= 550 && least.height() <= 400,
                 qPrintable(QStringLiteral("needs %1 x %2").arg(least.width()).arg(least.height())));
    }
    const auto *tree = shown.widget<QTreeWidget>("treeWidget");
    QVERIFY2(tree->viewport()->height() >= 3 * tree->fontMetrics().height(), "three files are seen");
}

void tst_ImportDialog::tabGoesThroughThePanel_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("order");

    const auto row = [](const char *name, const QString &mode, const QString &order) {
        QTest::newRow(name) << mode << order;
    };
    row("single import, row by row", "radioButton",
        "explode_checkBox browse_pushButton path_lineEdit listWidget specify_checkBox scale_lineEdit "
        "scale_specify_checkBox angle_lineEdit rotation_specify_checkBox master_unit_lineEdit "
        "sub_unit_lineEdit units_comboBox cancel_button help_button_2");
    row("batch processing, top down", "radioButton_2",
        "explode_checkBox source_path_lineEdit source_path_browse_pushButton dest_path_lineEdit "
        "dest_path_browse_pushButton treeWidget global_set_checkBox cancel_button_2 help_button");
}

void tst_ImportDialog::tabGoesThroughThePanel()
{
    QFETCH(QString, mode);
    QFETCH(QString, order);

    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.click(mode);
    shown.widget(mode)->setFocus();
    QStringList actual;
    for (int left = order.count(' ') + 1; left > 0; --left) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        actual.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(actual.join(' '), order);
}

void tst_ImportDialog::acceleratorsReachTheirFields_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("field");

    QTest::newRow("X") << Qt::Key_X << "x_lineEdit";
    QTest::newRow("Y") << Qt::Key_Y << "y_lineEdit";
    QTest::newRow("Z") << Qt::Key_Z << "z_lineEdit";
    QTest::newRow("Factor") << Qt::Key_F << "scale_lineEdit";
    QTest::newRow("Angle") << Qt::Key_A << "angle_lineEdit";
    QTest::newRow("Units") << Qt::Key_T << "units_comboBox";
}

void tst_ImportDialog::acceleratorsReachTheirFields()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, field);

    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.click("specify_checkBox");
    shown.widget("cancel_button")->setFocus();
    QTest::keyClick(shown.dialog, key, Qt::AltModifier);
    if (key
        == Qt::Key_X) // shared with "Explode text node": the first press goes to one, the next to the other
        QTest::keyClick(shown.dialog, key, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget()->objectName(), field);
}

void tst_ImportDialog::modesKeepTheirValues()
{
    const ShownDialog shown;
    shown.type("angle_lineEdit", "45");
    shown.click("radioButton_2");
    QVERIFY(!shown.widget("insert_block")->isVisible());
    QVERIFY(shown.widget("batch_processing")->isVisible());
    shown.click("global_set_checkBox");

    shown.click("radioButton");
    QVERIFY(shown.widget("insert_block")->isVisible());
    QVERIFY(!shown.widget("batch_processing")->isVisible());
    QCOMPARE(shown.text("angle_lineEdit"), QString("45"));

    shown.click("radioButton_2");
    QVERIFY(shown.isChecked("global_set_checkBox"));
}

void tst_ImportDialog::specifyLater_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QStringList>("labels");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<int>("theme");

    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        const QByteArray in = theme == Theme::Light ? " in the light theme" : " in the dark theme";
        QTest::newRow("position" + in) << "specify_checkBox" << QStringList{"x_label", "y_label", "z_label"}
                                       << QStringList{"x_lineEdit", "y_lineEdit", "z_lineEdit"} << int(theme);
        QTest::newRow("scale" + in) << "scale_specify_checkBox" << QStringList{"factor_label"}
                                    << QStringList{"scale_lineEdit"} << int(theme);
        QTest::newRow("rotation" + in) << "rotation_specify_checkBox" << QStringList{"angel_label"}
                                       << QStringList{"angle_lineEdit"} << int(theme);
    }
}

void tst_ImportDialog::specifyLater()
{
    QFETCH(QString, box);
    QFETCH(QStringList, labels);
    QFETCH(QStringList, fields);
    QFETCH(int, theme);

    const ShownDialog shown{static_cast<Theme>(theme)};
    for (int i = 0; i < 3; ++i) {
        shown.click(box);
        const bool later = shown.isChecked(box);
        for (const QString &name : labels + fields)
            QCOMPARE(shown.isEnabled(name), !later);
        for (const QString &name : fields) {
            const QString color = later ? laterColor : editableColor;
            QCOMPARE(shown.value(name, "styleSheet").toString(),
                     static_cast<Theme>(theme) == Theme::Light ? color : QString());
        }
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
    QCOMPARE(answers.messages,
             (QStringList{"Batch Processing: Do you want to stop Batch Processing?",
                          "Batch Processing: Batch Processing finished."}));
}

void tst_ImportDialog::globalSettings()
{
    const ShownDialog shown;
    shown.click("radioButton_2");
    for (const bool global : {true, false}) {
        shown.click("global_set_checkBox");
        QCOMPARE(shown.isEnabled("radioButton_3"), global);
        QCOMPARE(shown.isEnabled("radioButton_4"), global);
        QVERIFY(shown.isChecked("radioButton_3"));
    }
}

void tst_ImportDialog::closing_data()
{
    QTest::addColumn<QString>("how");

    QTest::newRow("Cancel") << "cancel_button";
    QTest::newRow("Close in batch mode") << "cancel_button_2";
    QTest::newRow("the window's own close button") << "close box";
    QTest::newRow("Esc hides the dialog only") << "Esc";
}

void tst_ImportDialog::closing()
{
    QFETCH(QString, how);

    const ShownDialog shown;
    const QStringList emptied = {"name_lineEdit", "path_lineEdit", "source_path_lineEdit",
                                 "dest_path_lineEdit"};
    for (const QString &name : emptied)
        shown.widget(name)->setProperty("text", "something");
    auto *list = shown.widget<QListWidget>("listWidget");
    list->addItem("Default");
    auto *tree = shown.widget<QTreeWidget>("treeWidget");
    new QTreeWidgetItem(tree, QStringList{"plan.svg"});
    shown.type("angle_lineEdit", "45");
    if (how == "cancel_button_2")
        shown.click("radioButton_2");

    const bool hidesOnly = how == "Esc";
    if (hidesOnly)
        QTest::keyClick(shown.dialog, Qt::Key_Escape);
    else if (how == "close box")
        shown.dialog->close();
    else
        shown.click(how);

    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.window->m_dialogActive, hidesOnly);
    for (const QString &name : emptied)
        QCOMPARE(shown.text(name), QString(hidesOnly ? "something" : ""));
    QCOMPARE(list->count() + tree->topLevelItemCount(), hidesOnly ? 2 : 0);
    QCOMPARE(shown.text("angle_lineEdit"), QString("45"));
    QCOMPARE(QSettings().allKeys(), hidesOnly ? QStringList() : QStringList{"mainWindowGeometry"});
    QVERIFY(hidesOnly || QWidget().restoreGeometry(QSettings().value("mainWindowGeometry").toByteArray()));
}

void tst_ImportDialog::enterPressesOkOnly()
{
    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    for (const QPushButton *button : shown.dialog->findChildren<QPushButton *>()) {
        QCOMPARE(button->isDefault(), button->objectName() == "OK_pushButton");
        QVERIFY2(!button->autoDefault(), qPrintable(button->objectName()));
    }
    shown.widget("help_button_2")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY2(shown.dialog->isVisible(), "OK was disabled");
    QVERIFY(shown.calls("Help").isEmpty());

    shown.widget("OK_pushButton")->setEnabled(true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!shown.dialog->isVisible());
}

void tst_ImportDialog::factors_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fromFeet");
    QTest::addColumn<QString>("fromInches");

    const char *const rows[][3] = {
        {"Unitless", "1", "1"},
        {"Inches", "12", "1"},
        {"Feet", "1", "0.0833333"},
        {"Miles", "0.000189394", "1.57828e-05"},
        {"Milimeters", "304.800097536", "25.4"},
        {"Centimeters", "30.4800097536", "2.54"},
        {"Meters", "0.3048", "0.0254"},
        {"Kilometers", "0.0003048", "2.54e-05"},
        {"Microinches", "1.2e+07", "1e+06"},
        {"Mils", "12000", "1000"},
        {"Yards", "0.333333", "0.0277778"},
        {"Angstroms", "3.048e+09", "2.54e+08"},
        {"Nanometers", "3.048e+08", "2.54e+07"},
        {"Microns", "304800", "25400"},
        {"Decimeters", "3.048", "0.254"},
        {"Hectometers", "0.003048", "0.000254"},
        {"Gigameters", "3.048e-10", "2.54e-11"},
        {"Astronomical", "2.032e-12", "1.69333e-13"},
        {"Parsecs", "9.83226e-18", "8.19355e-19"},
    };
    int unit = 0;
    for (const auto &row : rows)
        QTest::newRow(row[0]) << unit++ << row[0] << row[1] << row[2];
}

void tst_ImportDialog::factors()
{
    QFETCH(int, unit);
    QFETCH(QString, name);
    QFETCH(QString, fromFeet);
    QFETCH(QString, fromInches);

    // Names that differ from the table's match no row: the field keeps what it showed.
    const QStringList asInFrench = {"Miles", "Mils", "Yards", "Microns", "Parsecs"};
    for (const auto &[language, known] : {std::pair("", true),
                                          {"ImportSVG_english.qm", true},
                                          {"ImportSVG_french.qm", asInFrench.contains(name)},
                                          {"ImportSVG_russian.qm", false}}) {
        const ShownDialog shown(Theme::Light, language);
        shown.widget("master_unit_radioButton")->setEnabled(true);
        shown.widget("sub_units_radioButton")->setEnabled(true);
        auto *units = shown.widget<QComboBox>("units_comboBox");
        units->setCurrentIndex(unit == 0 ? 1 : 0);
        shown.click("master_unit_radioButton");
        units->setCurrentIndex(unit);
        QCOMPARE((units->currentText() == name), known);
        QCOMPARE(shown.text("convert_factor_lineEdit"), known ? fromFeet : QString("1"));
        shown.click("sub_units_radioButton");
        QCOMPARE(shown.text("convert_factor_lineEdit"), known ? fromInches : QString("1"));
    }
}

void tst_ImportDialog::factorBeforeAFileIsChosen()
{
    const ShownDialog shown;
    shown.widget<QComboBox>("units_comboBox")->setCurrentIndex(18);
    QCOMPARE(shown.text("convert_factor_lineEdit"), QString("1"));
}

void tst_ImportDialog::webHelp_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("name");

    const std::pair<int, const char *> rows[] = {
        {1, "German"},
        {2, "English"},
        {3, "Turkish"},
        {5, "Polish"},
        {6, "Japanese"},
        {7, "French"},
        {8, "Chinese"},
        {9, "Chinese-simplified"},
        {10, "Italian"},
        {11, "Spanish"},
        {13, "Korean"},
        {18, "Russian"},
        {19, "Portuguese-brazilian"},
        {20, "Czech"},
        {0, ""},
        {4, ""},
        {12, ""},
        {17, ""},
        {21, ""},
        {-1, ""},
    };
    for (const auto &[value, name] : rows)
        QTest::newRow(qPrintable(QString("host language %1").arg(value))) << value << name;
}

void tst_ImportDialog::webHelp()
{
    QFETCH(int, language);
    QFETCH(QString, name);

    ShownDialog shown;
    shown.host.session.settings.language = language;
    shown.host.session.settings.webLink = "https://help.example/a b";
    QStringList opened;
    shown.host.session.services.openWebHelp = [&opened](const QString &address) {
        opened.append(address);
        return true;
    };
    shown.click("help_button_2");
    QCOMPARE(opened, QStringList{"https://help.example/a b?P=16&L=" + name + "&V=2019&C=KorvaneSW&I=15010"});
}

void tst_ImportDialog::helpFile_data()
{
    QTest::addColumn<QString>("hostFile");
    QTest::addColumn<QByteArray>("failing");
    QTest::addColumn<QString>("opened");

    const auto row = [](const char *name, const QString &hostFile, const QByteArray &failing,
                        const QString &opened) { QTest::newRow(name) << hostFile << failing << opened; };
    row("the add-in's file beside the host's", "C:\\Korvane\\Korvane.chm", {}, "C:\\Korvane\\KorvaneSW.chm");
    row("every occurrence is replaced", "/Korvane.chm/Korvane.chm", {}, "/KorvaneSW.chm/KorvaneSW.chm");
    row("another case stays", "C:/korvane.chm", {}, "C:/korvane.chm");
    row("a replaced name stays", "C:/KorvaneSW.chm", {}, "C:/KorvaneSW.chm");
    row("no file named", {}, {}, {});
    row("no system files", "Korvane.chm", "kvApplication_c::GetSystemFiles", {});
}

void tst_ImportDialog::helpFile()
{
    QFETCH(QString, hostFile);
    QFETCH(QByteArray, failing);
    QFETCH(QString, opened);

    ShownDialog shown;
    shown.host.session.settings.webHelp = false;
    shown.host.session.settings.helpFile = hostFile;
    shown.host.session.faults.failEvery(failing);
    QList<std::pair<long, QString>> actual;
    shown.host.session.services.openHelpFile = [&actual](long topic, const QString &path) {
        actual.append({topic, path});
        return false;
    };
    shown.click("help_button_2");
    QCOMPARE(actual, (QList<std::pair<long, QString>>{{15010L, opened}}));
}

void tst_ImportDialog::helpControls_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("focus");

    const auto row = [](const char *name, const QString &mode, const QString &button, const QString &focus) {
        QTest::newRow(name) << mode << button << focus;
    };
    row("Help of single import", "radioButton", "help_button_2", {});
    row("Help of batch processing", "radioButton_2", "help_button", {});
    row("F1 in a field", "radioButton", {}, "scale_lineEdit");
    row("F1 in the unit list", "radioButton", {}, "units_comboBox");
    row("F1 in the file tree", "radioButton_2", {}, "treeWidget");
}

void tst_ImportDialog::helpControls()
{
    QFETCH(QString, mode);
    QFETCH(QString, button);
    QFETCH(QString, focus);

    const ShownDialog shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.dialog));
    shown.click(mode);
    if (!button.isEmpty())
        shown.click(button);
    else
        QTest::keyClick(shown.widget(focus), Qt::Key_F1);
    QCOMPARE(shown.calls("kvApplication_c::OpenWebHelp").size(), 1);
}

void tst_ImportDialog::darkFrame_data()
{
    QTest::addColumn<QList<long>>("results");
    QTest::addColumn<QList<unsigned>>("attributes");

    QTest::newRow("accepted at once") << QList<long>{0} << QList<unsigned>{20};
    QTest::newRow("refused, then tried by the older number") << QList<long>{-1, 0} << QList<unsigned>{20, 19};
    QTest::newRow("refused with a positive code") << QList<long>{1, 0} << QList<unsigned>{20, 19};
    QTest::newRow("refused twice, not tried again") << QList<long>{-1, 1, 0} << QList<unsigned>{20, 19};
}

void tst_ImportDialog::darkFrame()
{
    QFETCH(QList<long>, results);
    QFETCH(QList<unsigned>, attributes);

    QList<unsigned> actual;
    setDarkFrameAttribute([&](unsigned attribute) {
        actual.append(attribute);
        return results.at(actual.size() - 1);
    });
    QCOMPARE(actual, attributes);
}

int main(int argc, char *argv[])
{
    const TemporarySettings settings;
    QApplication application(argc, argv);
    // 9 points at 96 dots per inch: what desktops show, whatever this platform's default.
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);

    tst_ImportDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ImportDialog.moc"
