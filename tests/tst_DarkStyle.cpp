// The dark theme can be read: texts and check marks are measured on what the controls really paint.

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

const QString resources = QStringLiteral(":/KVImportSVGAddin/Resource/");

QString styleSheet()
{
    QFile file(resources + "KVImportSVGAddinDarkMode.qss");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// WCAG 2.1: relative luminance.
double luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

/// Two colours that lie on each other in a picture.
struct Paint {
    QRgb ink = 0;
    QRgb ground = 0;

    /// WCAG 2.1: contrast ratio, 1 to 21.
    double contrast() const
    {
        const auto [low, high] = std::minmax({luminance(ink), luminance(ground)});
        return (high + 0.05) / (low + 0.05);
    }
    bool operator!=(const Paint &other) const { return ink != other.ink || ground != other.ground; }
    QString inWords() const
    {
        return QString("%1 on %2: %3").arg(QColor(ink).name(), QColor(ground).name()).arg(contrast());
    }
};

/// What `picture` has on top of `blank`, where it stands out most. Antialiased pixels lie in between.
Paint addedPaint(const QImage &picture, const QImage &blank)
{
    Paint strongest;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Paint paint{picture.pixel(x, y), blank.pixel(x, y)};
            if (paint.contrast() > strongest.contrast())
                strongest = paint;
        }
    }
    return strongest;
}

/// Makes a control that shows the text given.
using Control = std::function<QWidget *(const QString &)>;

QWidget *label(const QString &text)
{
    return new QLabel(text);
}

template <typename Button, bool checked = false>
QWidget *button(const QString &text)
{
    auto *control = new Button(text);
    control->setAutoExclusive(false);
    control->setCheckable(true);
    control->setChecked(checked);
    return control;
}

template <bool down>
QWidget *pushButton(const QString &text)
{
    auto *control = new QPushButton(text);
    control->setDown(down);
    return control;
}

template <bool readOnly>
QWidget *lineEdit(const QString &text)
{
    auto *control = new QLineEdit(text);
    control->setReadOnly(readOnly);
    control->setStyleSheet(readOnly ? "background-color : transparent" : QString());
    return control;
}

template <int percent>
QWidget *progressBar(const QString &text)
{
    auto *control = new QProgressBar;
    control->setFormat(text);
    control->setValue(percent);
    return control;
}

QWidget *comboBox(const QString &text)
{
    auto *control = new QComboBox;
    control->addItem(text);
    return control;
}

template <bool selected>
QWidget *fileList(const QString &text)
{
    auto *control = new QTreeWidget;
    auto *item = new QTreeWidgetItem(control, {text});
    item->setSelected(selected);
    return control;
}

QWidget *fileListTable(const QString &text)
{
    auto *control = new QTreeWidget;
    auto *table = new QTableWidget(1, 1);
    table->setItem(0, 0, new QTableWidgetItem(text));
    control->setItemWidget(new QTreeWidgetItem(control), 0, table);
    return control;
}

QWidget *header(const QString &text)
{
    auto *control = new QTreeWidget;
    control->setHeaderLabel(text);
    return control;
}

enum class State { Enabled, Disabled };

/// The control as it looks in a dialog of the dark theme.
QImage painted(const Control &control, State state, const QString &text)
{
    QDialog dialog;
    dialog.setStyleSheet(styleSheet() + "\nQWidget { font: bold 24px; }");
    auto *layout = new QVBoxLayout(&dialog);
    auto *focused = new QLineEdit;
    layout->addWidget(focused);
    auto *widget = control(text);
    layout->addWidget(widget);
    widget->setFixedSize(260, 90);
    widget->setEnabled(state == State::Enabled);
    dialog.show();
    focused->setFocus();
    return dialog.grab(widget->geometry()).toImage(); // a label alone would lie on nothing
}

/// The paint of the text that the control shows.
Paint textPaint(const Control &control, State state)
{
    return addedPaint(painted(control, state, "MMMM"), painted(control, state, QString(" ")));
}

} // namespace

Q_DECLARE_METATYPE(Control)

class tst_DarkStyle : public QObject {
    Q_OBJECT

private slots:
    void picturesExist();
    void iconsStandOut_data();
    void iconsStandOut();
    void textCanBeRead_data();
    void textCanBeRead();
    void checkMarksCanBeSeen_data();
    void checkMarksCanBeSeen();
};

void tst_DarkStyle::picturesExist()
{
    static const QRegularExpression address(R"(url\((:[^)]+)\))");
    int count = 0;
    for (auto match = address.globalMatch(styleSheet()); match.hasNext(); ++count) {
        const QString path = match.next().captured(1);
        QVERIFY2(!QImage(path).isNull(), qPrintable(path));
    }
    QVERIFY(count > 0);
}

void tst_DarkStyle::iconsStandOut_data()
{
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QColor>("ground");
    for (const QString name : {"ImportSVG", "OK", "cancel", "help", "Delete"}) {
        QTest::newRow(qPrintable(name + ", light")) << name + "_32x-32.svg" << QColor(Qt::white);
        QTest::newRow(qPrintable(name + ", dark")) << "DarkMode/" + name + "-32.svg" << QColor("#40454d");
    }
}

void tst_DarkStyle::iconsStandOut()
{
    QFETCH(QString, icon);
    QFETCH(QColor, ground);
    for (const int size : {16, 24, 32}) {
        QImage blank(size, size, QImage::Format_RGB32);
        blank.fill(ground);
        QImage picture = blank;
        QPainter(&picture).drawPixmap(0, 0, QIcon(resources + icon).pixmap(size, size));
        const Paint paint = addedPaint(picture, blank);
        QVERIFY2(paint.contrast() >= 3, qPrintable(paint.inWords()));
    }
}

void tst_DarkStyle::textCanBeRead_data()
{
    QTest::addColumn<Control>("control");

    const std::pair<const char *, Control> controls[] = {
        {"label", label},
        {"line edit", lineEdit<false>},
        {"read-only line edit", lineEdit<true>},
        {"push button", pushButton<false>},
        {"pressed push button", pushButton<true>},
        {"check box", button<QCheckBox>},
        {"radio button", button<QRadioButton>},
        {"combo box", comboBox},
        {"file", fileList<false>},
        {"selected file", fileList<true>},
        {"table of a file", fileListTable},
        {"header", header},
        {"empty progress bar", progressBar<0>},
        {"full progress bar", progressBar<100>},
    };
    for (const auto &[name, control] : controls)
        QTest::newRow(name) << control;
}

void tst_DarkStyle::textCanBeRead()
{
    QFETCH(Control, control);
    const Paint enabled = textPaint(control, State::Enabled);
    QVERIFY2(enabled.contrast() >= 4.5, qPrintable(enabled.inWords()));

    const Paint disabled = textPaint(control, State::Disabled);
    QVERIFY2(disabled.contrast() >= 4.5, qPrintable("disabled: " + disabled.inWords()));
    QVERIFY2(disabled != enabled, qPrintable("enabled and disabled: " + enabled.inWords()));
}

void tst_DarkStyle::checkMarksCanBeSeen_data()
{
    QTest::addColumn<Control>("unchecked");
    QTest::addColumn<Control>("checked");
    QTest::newRow("check box") << Control(button<QCheckBox>) << Control(button<QCheckBox, true>);
    QTest::newRow("radio button") << Control(button<QRadioButton>) << Control(button<QRadioButton, true>);
}

void tst_DarkStyle::checkMarksCanBeSeen()
{
    QFETCH(Control, unchecked);
    QFETCH(Control, checked);
    for (const State state : {State::Enabled, State::Disabled}) {
        const QImage empty = painted(unchecked, state, " ");
        const Paint box = addedPaint(empty, painted(label, state, " "));
        QVERIFY2(box.contrast() >= 3, qPrintable("box: " + box.inWords()));
        const Paint mark = addedPaint(painted(checked, state, " "), empty);
        QVERIFY2(mark.contrast() >= 3, qPrintable("mark: " + mark.inWords()));
    }
}

QTEST_MAIN(tst_DarkStyle)
#include "tst_DarkStyle.moc"
