// The import dialog in the host's window, with the add-in's real library.

#pragma once

#include "HostWindowDriver.h"
#include "ImportDriver.h"

#include "app/Canvas.h"
#include "app/HostSettingsStore.h"
#include "app/WindowCommands.h"

#include <QTabBar>

#include <algorithm>

/// What is imported.
inline const QByteArray shapes =
    R"svg(<svg><line x1="0" y1="0" x2="40" y2="30"/><circle cx="70" cy="20" r="10"/>
<rect x="0" y="60" width="30" height="20"/><polyline points="50,60 60,80 80.5,65"/>
<text x="0" y="110" font-size="10">Größe Ω</text></svg>)svg";

/// The window with the add-in connected.
class ImportWindow : public ImportDriver {
public:
    ImportWindow()
    {
        refhost::addWindowCommands(window);
        window.connectAddin(KORVANE_ADDIN);
        window.show();
        if (!QTest::qWaitForWindowExposed(&window) || !window.hasAddin())
            qFatal("%s", qPrintable(window.commandLine().history()));
    }

    /// Runs IMPORTSVG. `act` works in the dialog, which is closed afterwards if it did not do that itself.
    void typeCommand(const std::function<void()> &act)
    {
        workInDialog(act);
        ::type(window, QStringLiteral("importsvg"));
    }
    /// In the dialog: chooses `shapes`, fills in all fields and ticks the boxes `later` alone.
    void fillIn(const QStringList &later)
    {
        choose("browse_pushButton", write("plan.svg", shapes));
        click("specify_checkBox"); // ticked at the start
        for (const auto &[field, text] : {std::pair("x_lineEdit", "10"),
                                          {"y_lineEdit", "-20.5"},
                                          {"z_lineEdit", "3"},
                                          {"scale_lineEdit", "2"},
                                          {"angle_lineEdit", "90"}})
            type(field, text);
        for (const QString &box : later)
            click(box);
    }
    void fillInAndConfirm()
    {
        fillIn({});
        click("OK_pushButton");
    }
    /// In the dialog: lists the folder "in", chooses "out" and ticks all.
    void chooseFolders()
    {
        click("radioButton_2");
        choose("source_path_browse_pushButton", path("in"));
        choose("dest_path_browse_pushButton", path("out"));
        click("checkBox_2");
    }
    refhost::HostDocument &document() { return *window.session().activeDocument(); }
    QString tabs() const
    {
        const auto *bar = window.findChild<QTabBar *>("documentTabs");
        QStringList texts;
        for (int i = 0; i < bar->count(); ++i)
            texts.append(bar->tabText(i));
        return texts.join('|');
    }
    /// Clicks where `point` of the drawing is seen and answers with what is selected then.
    std::vector<refhost::EntityId> clickAt(const refhost::Point &point)
    {
        QTest::mouseClick(&window.canvas(), Qt::LeftButton, {}, pixelOf(point));
        return document().selection;
    }
    /// Whether something is drawn at `point`; the grid is fainter, its axes are coloured.
    bool isDrawnAt(const refhost::Point &point)
    {
        if (!window.canvas().rect().contains(pixelOf(point)))
            return false;
        const QImage place = window.canvas().grab({pixelOf(point) - QPoint(2, 2), QSize(5, 5)}).toImage();
        for (int i = 0; i < 25; ++i) {
            const QColor colour = place.pixelColor(i % 5, i / 5);
            if (std::max({colour.red(), colour.green(), colour.blue()}) < 170)
                return true;
        }
        return false;
    }

    refhost::HostWindow window{refhost::loadHostSettings()};

private:
    QPoint pixelOf(const refhost::Point &point) { return window.canvas().view().toPixels(point).toPoint(); }
};
