// Every call that an import makes goes wrong once: the host refuses it, or it and all that follow, or it
// throws.

#include "ImportSession.h"
#include "TableOf.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {

enum class Fault { Refused, RefusedFromThenOn, Throws };

const std::pair<QByteArray, Fault> refusals[] = {{" refused", Fault::Refused},
                                                 {" refused from then on", Fault::RefusedFromThenOn}};

/// Makes the call number `index` from now on, counted from 0, go wrong. A warning of the add-in about an
/// exception is expected.
void failCall(RecordingHost &host, int index, Fault fault)
{
    host.calls.clear();
    host.session.faults.clear();
    if (fault != Fault::Throws)
        return host.session.faults.failAnyCall(index + 1, fault == Fault::RefusedFromThenOn);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Import SVG: .* failed: out of order"));
    host.session.journal().begin([&host, index](const QByteArray &line) {
        host.calls.append(line);
        if (host.calls.size() == index + 1)
            throw std::runtime_error("out of order");
    });
}

/// The entities of `drawing`, in model space and in blocks.
std::size_t entityCount(const refhost::Drawing &drawing)
{
    std::size_t count = drawing.modelSpace().size();
    for (const refhost::BlockDefinitionPtr &block : drawing.blocks())
        count += block->entities.size();
    return count;
}

/// Imports again and again while the user's drawing, with a circle in it, is open.
class FaultySession : public ImportSession {
public:
    FaultySession()
    {
        host.session.services.report = [](const QString & /*message*/) {};
    }

    /// Runs `work` with each of its calls going wrong, and `isUnharmed` after each.
    void failEachCall(Fault fault, const std::function<void()> &work, const std::function<bool()> &isUnharmed)
    {
        host.begin();
        work();
        const QByteArrayList model = host.calls;
        QVERIFY(!model.isEmpty());
        for (int call = 0; call < model.size(); ++call) {
            failCall(host, call, fault);
            work();
            QVERIFY2(isUnharmed(), QByteArray::number(call) + ": " + model[call]);
        }
        host.session.faults.clear();
        host.begin();
        work();
        QCOMPARE(host.calls.size(), model.size());
    }
    /// Runs IMPORTSVG with `act`. Afterwards every handle is released, apart from those that a throwing call
    /// made and did not hand over.
    void importTidily(Fault fault, const std::function<void()> &act)
    {
        const std::size_t handles = host.session.handles().size();
        import(act);
        import([]{}); // deletes the earlier dialog and its handles
        QVERIFY(fault == Fault::Throws || host.session.handles().size() == handles);
    }
    /// Whether the user's drawing holds `others` entities beside its circle.
    bool holds(std::size_t others) const
    {
        return users->drawing.isInModelSpace(usersCircle) && entityCount(users->drawing) == 1 + others;
    }
    /// How many entities the calls of the run just made have drawn.
    std::size_t drawn() const
    {
        return std::size_t(std::count_if(host.calls.begin(), host.calls.end(), [](const QByteArray &call) {
            return call.contains("SketchManager_c::Insert") && call.endsWith("\"result\":0}");
        }));
    }

    const refhost::HostDocumentPtr users = host.session.activeDocument();
    const refhost::EntityId usersCircle = users->drawing.add(refhost::Circle{{}, 1.0});
};

} // namespace

Q_DECLARE_METATYPE(Fault)

class tst_HostFaults : public QObject {
    Q_OBJECT

private slots:
    void singleImport_data();
    void singleImport();
    void batch_data();
    void batch();
    void cleanup() { QCOMPARE(refhost::HandleRegister::doubleDeletions(), 0); }
};

void tst_HostFaults::singleImport_data()
{
    const auto row = tableOf<Fault, QString, bool>("fault", "sample", "hasDrawing");
    for (const auto &[words, fault] : refusals) {
        for (const char *sample : {"labels-in-many-scripts", "skipped-arcs-and-styles",
                                   "untransformed-curves-and-shorthand", "flange", "owl-clock"})
            row(sample + words, fault, sample, true);
        row("no drawing is open" + words, fault, "flange", false);
    }
    row("flange throws", Fault::Throws, "flange", true);
}

void tst_HostFaults::singleImport()
{
    QFETCH(Fault, fault);
    QFETCH(QString, sample);
    QFETCH(bool, hasDrawing);

    FaultySession session;
    if (!hasDrawing)
        session.host.session.close(session.users);
    std::size_t drawn = 0;
    session.importTidily(fault, [&] {
        session.choose("browse_pushButton", KORVANE_SAMPLES "/" + sample + ".svg");
        // OK closes the dialog but keeps the file, so it can be pressed again.
        const auto pressOk = [&session, &drawn] {
            session.widget<QAbstractButton>("OK_pushButton")->click();
            drawn += session.drawn();
        };
        session.failEachCall(fault, pressOk, [&] { return session.holds(drawn); });
    });
    QCOMPARE(drawn > 0, hasDrawing);
}

void tst_HostFaults::batch_data()
{
    const auto row = tableOf<Fault>("fault");
    for (const auto &[words, fault] : refusals)
        row("a call of the run" + words, fault);
    row("a call of the run throws", Fault::Throws);
}

void tst_HostFaults::batch()
{
    QFETCH(Fault, fault);

    FaultySession session;
    session.host.session.services.saveDrawing = [&](const refhost::Drawing &, const QString &file, bool) {
        session.write(QString(file).remove(0, session.path().size() + 1), {});
        return QString();
    };
    for (const char *name : {"in/a.svg", "in/b.svg", "in/c.svg"})
        session.write(name, R"(<svg><line x2="1"/><circle r="2"/></svg>)");
    session.importTidily(fault, [&] {
        session.click("radioButton_2");
        session.choose("source_path_browse_pushButton", session.path("in"));
        QDir().mkpath(session.path("out"));
        session.choose("dest_path_browse_pushButton", session.path("out"));
        session.click("checkBox_2");
        session.click("explode_checkBox");
        const auto start = [&session] {
            QDir(session.path("out")).removeRecursively();
            QDir().mkpath(session.path("out"));
            session.answers.press(QMessageBox::Ok);
            session.click("start_pushButton");
        };
        session.failEachCall(fault, start, [&] {
            // The run leaves its drawing open when its own closing call goes wrong.
            while (session.host.session.activeDocument() != session.users)
                session.host.session.close(session.host.session.activeDocument());
            return session.holds(0) && session.isEnabled("start_pushButton")
                && session.isEnabled("cancel_button_2") && !session.widget("progressBar")->isVisible();
        });
        QCOMPARE(QDir(session.path("out")).entryList(QDir::Files), (QStringList{"a.dwg", "b.dwg", "c.dwg"}));
    });
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    tst_HostFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_HostFaults.moc"
