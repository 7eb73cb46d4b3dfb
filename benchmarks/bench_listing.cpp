// How long the import dialog takes to list a folder, from the chosen folder to the filled tree, and how long
// Qt alone takes to fill a tree with as many rows. The time for one file must not depend on their number.

#include "mainWindow.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

void addFiles(const QTemporaryDir &folder, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i) {
        QFile file(folder.filePath(QStringLiteral("drawing%1.svg").arg(i)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("The benchmark's files cannot be made.");
    }
}

Clock::time_point chosen;

/// The dialog shows the folder once it is chosen. Qt's own dialog has read the folder as well and is gone by
/// then.
void noteChoice(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &message)
{
    if (message.startsWith(QLatin1String("dirPath")))
        chosen = Clock::now();
}

/// Lists the files of `folder` in `dialog` and answers with the seconds after the choice of the folder.
double secondsToList(mainWindow &dialog, const QString &folder)
{
    QTimer::singleShot(0, &dialog, [&] {
        auto *choice = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!choice)
            qFatal("The dialog does not ask for a folder.");
        choice->setDirectory(folder);
        static_cast<QDialog *>(choice)->done(QDialog::Accepted);
    });
    dialog.On_source_path_browse_pushButton();
    return std::chrono::duration<double>(Clock::now() - chosen).count();
}

void listing(benchmark::State &state)
{
    const QTemporaryDir folder;
    addFiles(folder, state.range(0));
    for (auto _ : state) {
        mainWindow dialog;
        dialog.show();
        state.SetIterationTime(secondsToList(dialog, folder.path()));
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Fills a tree with the rows alone, each file with a row below it: what the listing is measured against.
void bareTree(benchmark::State &state)
{
    for (auto _ : state) {
        QTreeWidget tree;
        tree.show();
        const Clock::time_point started = Clock::now();
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            auto *item = new QTreeWidgetItem(&tree);
            item->setCheckState(0, Qt::Unchecked);
            item->setText(0, QStringLiteral("drawing%1.svg").arg(i));
            new QTreeWidgetItem(item);
        }
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - started).count());
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)
        ->Range(100, 10'000)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Complexity();
}

} // namespace

BENCHMARK(listing)->Apply(sizes);
BENCHMARK(bareTree)->Apply(sizes);

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    qInstallMessageHandler(noteChoice);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
