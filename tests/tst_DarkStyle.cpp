// The dark theme can be read: texts and check marks are measured on what the controls really paint.

#include "TableOf.h"

#include <QtWidgets>

#include <cmath>

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
    double contrast = 1; ///< WCAG 2.1: 1 to 21

    QString inWords() const
    {
        return QString("%1 on %2: %3").arg(QColor(ink).name(), QColor(ground).name()).arg(contrast);
    }
};

/// What `picture` has on top of `blank`, where it stands out most. Antialiased pixels lie in between.
Paint addedPaint(const QImage &picture, const QImage &blank)
{
    Paint strongest;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb ink = picture.pixel(x, y);
            const QRgb ground = blank.pixel(x, y);
            const auto [low, high] = std::minmax({luminance(ink), luminance(ground)});
            if (const double contrast = (high + 0.05) / (low + 0.05); contrast > strongest.contrast)
                strongest = {ink, ground, contrast};
        }
    }
    return strongest;
}

/// Makes a control that shows the text given.
using Control = std::function<QWidget *(const QString &)>;

/// A control of the class `Widget`, with its text in the property `text`.
template <class Widget>
Control control(const QVariantMap &properties = {}, const char *text = "text")
{
    return [=](const QString &shown) {
        auto *widget = new Widget;
        for (auto property = properties.cbegin(); property != properties.cend(); ++property)
            widget->setProperty(property.key().toLatin1(), *property);
        widget->setProperty(text, shown);
        return widget;
    };
}

/// The control as it looks in a dialog of the dark theme.
QImage painted(const Control &makeControl, bool enabled, const QString &text)
{
    QDialog dialog;
    dialog.setStyleSheet(styleSheet() + "\nQWidget { font: bold 24px; }");
    QVBoxLayout layout(&dialog);
    layout.addWidget(new QLineEdit); // which takes the focus
    QWidget *widget = makeControl(text);
    layout.addWidget(widget);
    widget->setFixedSize(260, 90);
    widget->setEnabled(enabled);
    dialog.show();
    return dialog.grab(widget->geometry()).toImage(); // a label alone would lie on nothing
}

} // namespace

Q_DECLARE_METATYPE(Control)

class tst_DarkStyle : public QObject {
    Q_OBJECT

private slots:
    void picturesExist();
    void iconsStandOut();
    void textCanBeRead_data();
    void textCanBeRead();
    void checkMarksCanBeSeen();
};

void tst_DarkStyle::picturesExist()
{
    const QStringList pictures = styleSheet().split("url(").mid(1);
    QVERIFY(!pictures.isEmpty());
    for (const QString &picture : pictures)
        QVERIFY2(!QImage(picture.section(')', 0, 0)).isNull(), qPrintable(picture));
}

void tst_DarkStyle::iconsStandOut()
{
    for (const QString name : {"ImportSVG", "OK", "cancel", "help", "Delete"}) {
        for (const auto &[icon, ground] : {std::pair(name + "_32x-32.svg", QColor(Qt::white)),
                                           {"DarkMode/" + name + "-32.svg", QColor("#40454d")}}) {
            QImage blank(16, 16, QImage::Format_RGB32);
            blank.fill(ground);
            QImage picture = blank;
            QPainter(&picture).drawPixmap(0, 0, QIcon(resources + icon).pixmap(16));
            const Paint paint = addedPaint(picture, blank);
            QVERIFY2(paint.contrast >= 3, qPrintable(icon + ": " + paint.inWords()));
        }
    }
}

void tst_DarkStyle::textCanBeRead_data()
{
    const auto row = tableOf<Control>("control");
    row("label", control<QLabel>());
    row("line edit", control<QLineEdit>());
    row("read-only line edit",
        control<QLineEdit>({{"readOnly", true}, {"styleSheet", "background-color : transparent"}}));
    row("push button", control<QPushButton>());
    row("pressed push button", control<QPushButton>({{"down", true}}));
    row("check box", control<QCheckBox>());
    row("radio button", control<QRadioButton>());
    row("empty progress bar", control<QProgressBar>({{"value", 0}}, "format"));
    row("full progress bar", control<QProgressBar>({{"value", 100}}, "format"));
    row("combo box", [](const QString &text) {
        auto *box = new QComboBox;
        box->addItem(text);
        return box;
    });
    // Files, the selected one, the table under one, and the header.
    for (const QString part : {"file", "selected file", "table", "header"}) {
        row(qPrintable(part), [part](const QString &text) {
            auto *tree = new QTreeWidget;
            auto *file = new QTreeWidgetItem(tree, {part.endsWith("file") ? text : QString()});
            file->setSelected(part == "selected file");
            tree->setHeaderLabel(part == "header" ? text : QString());
            if (part == "table") {
                auto *table = new QTableWidget(1, 1);
                table->setItem(0, 0, new QTableWidgetItem(text));
                tree->setItemWidget(file, 0, table);
            }
            return tree;
        });
    }
}

void tst_DarkStyle::textCanBeRead()
{
    QFETCH(Control, control);
    QStringList paints;
    for (const bool enabled : {true, false}) {
        const Paint text = addedPaint(painted(control, enabled, "MMMM"), painted(control, enabled, " "));
        QVERIFY2(text.contrast >= 4.5, qPrintable(text.inWords()));
        paints.append(text.inWords());
    }
    QVERIFY2(paints[0] != paints[1], qPrintable("enabled and disabled: " + paints[0]));
}

void tst_DarkStyle::checkMarksCanBeSeen()
{
    const QVariantMap checked = {{"checkable", true}, {"checked", true}};
    for (const auto &[unmarked, marked] : {std::pair(control<QCheckBox>(), control<QCheckBox>(checked)),
                                           {control<QRadioButton>(), control<QRadioButton>(checked)}}) {
        for (const bool enabled : {true, false}) {
            const QImage empty = painted(unmarked, enabled, " ");
            const Paint box = addedPaint(empty, painted(control<QLabel>(), enabled, " "));
            const Paint mark = addedPaint(painted(marked, enabled, " "), empty);
            QVERIFY2(box.contrast >= 3 && mark.contrast >= 3,
                     qPrintable("box: " + box.inWords() + ", mark: " + mark.inWords()));
        }
    }
}

QTEST_MAIN(tst_DarkStyle)
#include "tst_DarkStyle.moc"
