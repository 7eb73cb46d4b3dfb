// The SDK's own types: texts, arrays, and who deletes a host object.

#include "kvArray.h"
#include "kvInterfacePtr.h"
#include "kvTextConversion.h"

#include <QtTest>

#include <memory>
#include <utility>

namespace {

/// A host object that tells how many of its kind are alive; copies keep the name.
class Object final : public kvBaseObject_c {
public:
    enum class Parent { None, Host };

    explicit Object(int objectName, Parent owner = Parent::None)
        : name(objectName)
        , m_owner(owner)
    {
        ++alive;
    }
    ~Object() override { --alive; }
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    bool HasParent() const override { return m_owner == Parent::Host; }
    kvBaseObject_c *Clone() const override { return refusesClones ? nullptr : new Object(name); }

    const int name;
    bool refusesClones = false;

    static int alive;

private:
    Parent m_owner;
};

int Object::alive = 0;

using Handle = kvInterfacePtr<Object>;

/// A host call that hands out an object, or fails and leaves its out-parameter alone.
bool callHost(bool succeeds, Object **out)
{
    if (succeeds)
        *out = new Object(9);
    return succeeds;
}

std::u16string codeUnits(const kvString &text)
{
    return text.getUtf16();
}

} // namespace

class tst_KvLibrary : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(Object::alive, 0); }

    void wideCharactersBecomeUtf16_data();
    void wideCharactersBecomeUtf16();
    void compare_data();
    void compare();
    void textsComeBackFromTheHost_data();
    void textsComeBackFromTheHost();
    void arrays();

    void aHeldObjectIsDeletedOnce();
    void anObjectWithAParentIsCopiedAndLeftAlone();
    void aRefusedCopyLeavesTheHandleEmpty();
    void copiesOfAHandleHoldObjectsOfTheirOwn();
    void assignmentReplaces();
    void outParameters();
};

void tst_KvLibrary::wideCharactersBecomeUtf16_data()
{
    QTest::addColumn<QVector<uint>>("characters");
    QTest::addColumn<QVector<ushort>>("units");

    QTest::newRow("letters stay") << QVector<uint>{'a', 0xE4, 0x20AC} << QVector<ushort>{'a', 0xE4, 0x20AC};
    QTest::newRow("the last character of the first plane is one unit")
        << QVector<uint>{0xFFFF} << QVector<ushort>{0xFFFF};
    QTest::newRow("the first one beyond is a pair")
        << QVector<uint>{0x10000} << QVector<ushort>{0xD800, 0xDC00};
    QTest::newRow("a pair keeps its place")
        << QVector<uint>{'a', 0x1F4D0, 'b'} << QVector<ushort>{'a', 0xD83D, 0xDCD0, 'b'};
    QTest::newRow("the last character of all") << QVector<uint>{0x10FFFF} << QVector<ushort>{0xDBFF, 0xDFFF};
    QTest::newRow("a number beyond it is no character") << QVector<uint>{0x110000} << QVector<ushort>{0xFFFD};
    QTest::newRow("a negative wide character is none either")
        << QVector<uint>{0xFFFFFFFF} << QVector<ushort>{0xFFFD};
}

void tst_KvLibrary::wideCharactersBecomeUtf16()
{
    if (sizeof(wchar_t) < 4)
        QSKIP("wide characters are UTF-16 units here");
    QFETCH(QVector<uint>, characters);
    QFETCH(QVector<ushort>, units);

    std::wstring wide;
    for (const uint character : characters)
        wide.push_back(static_cast<wchar_t>(character));
    QVector<ushort> result;
    for (const char16_t unit : codeUnits(kvString(wide.c_str())))
        result.append(unit);
    QCOMPARE(result, units);
}

void tst_KvLibrary::compare_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<int>("sign");

    const auto row = [](const char *name, const QString &first, const QString &second, int sign) {
        QTest::newRow(name) << first << second << sign;
    };
    row("equal texts", "ID_Import", "ID_Import", 0);
    row("case counts", "ID_IMPORT", "ID_Import", -1);
    row("a longer text comes after its beginning", "ab", "a", 1);
    row("an empty text comes first", "", "a", -1);
    row("code units decide, not characters", QString(QChar(0xFFEE)), QStringLiteral("\U0001F4D0"), 1);
}

void tst_KvLibrary::compare()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(int, sign);

    const auto signOf = [](int value) { return (value > 0) - (value < 0); };
    QCOMPARE(signOf(toKvString(first).Compare(toKvString(second))), sign);
    QCOMPARE(signOf(toKvString(second).Compare(toKvString(first))), -sign);
}

void tst_KvLibrary::textsComeBackFromTheHost_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("back");

    const auto same = [](const char *name, const QString &text) { QTest::newRow(name) << text << text; };
    same("an empty text", QString());
    same("umlauts and signs", QStringLiteral("Tür Ø 40 €"));
    same("characters beyond the first plane", QStringLiteral("\U0001F4D0 and \U0010FFFF"));
    same("a byte order mark at the start", QStringLiteral("\uFEFFlabel"));
    same("a reversed byte order mark at the start", QString(QChar(0xFFFE)) + QStringLiteral("label"));
    QTest::newRow("a zero character ends the text") << QString::fromUtf8("ab\0cd", 5) << "ab";
}

void tst_KvLibrary::textsComeBackFromTheHost()
{
    QFETCH(QString, text);
    QFETCH(QString, back);

    QCOMPARE(toQString(toKvString(text)), back);
    QCOMPARE(toQString(kvString(nullptr)), QString());
}

void tst_KvLibrary::arrays()
{
    kvDoubleArray points;
    points.add(1.5);
    points.setSize(3);
    const kvDoubleArray copy = points;
    points[2] = 7.0;
    QCOMPARE(copy.getSize(), 3);
    QCOMPARE(copy[0], 1.5);
    QCOMPARE(copy[2], 0.0);

    points.setSize(1);
    points.setSize(2);
    QCOMPARE(points[1], 0.0);
    points.setSize(-1);
    QCOMPARE(points.getSize(), 0);

    kvObjectPtrArray objects;
    objects.setSize(1);
    QVERIFY(!objects[0]);
    const auto object = std::make_unique<Object>(1);
    objects.add(object.get());
    objects = {};
    QCOMPARE(Object::alive, 1);
}

void tst_KvLibrary::aHeldObjectIsDeletedOnce()
{
    {
        const Handle handle(new Object(1));
        QCOMPARE(handle->name, 1);
    }
    QCOMPARE(Object::alive, 0);

    Handle released(new Object(2));
    released.Release();
    QCOMPARE(Object::alive, 0);
    QVERIFY(!released);
    released.Release();
}

void tst_KvLibrary::anObjectWithAParentIsCopiedAndLeftAlone()
{
    const auto hosts = std::make_unique<Object>(3, Object::Parent::Host);
    Handle handle(hosts.get());
    QVERIFY(handle.get() != hosts.get());
    QCOMPARE(handle->name, 3);
    QVERIFY(!handle->HasParent());

    handle.Release();
    QCOMPARE(Object::alive, 1);
}

void tst_KvLibrary::aRefusedCopyLeavesTheHandleEmpty()
{
    const auto hosts = std::make_unique<Object>(3, Object::Parent::Host);
    hosts->refusesClones = true;
    QVERIFY(!Handle(hosts.get()));
}

void tst_KvLibrary::copiesOfAHandleHoldObjectsOfTheirOwn()
{
    Handle handle(new Object(4));
    const Handle copy(handle);
    QVERIFY(copy.get() != handle.get());
    QCOMPARE(copy->name, 4);
    handle.Release();
    QCOMPARE(copy->name, 4);

    const Handle empty;
    QVERIFY(!Handle(empty));
}

void tst_KvLibrary::assignmentReplaces()
{
    Handle handle(new Object(5));
    handle = Handle(new Object(6));
    QCOMPARE(handle->name, 6);
    QCOMPARE(Object::alive, 1);

    const Handle &itself = handle;
    handle = itself;
    QCOMPARE(handle->name, 6);
    QCOMPARE(Object::alive, 1);

    Handle taken(std::move(handle));
    QCOMPARE(taken->name, 6);
    QCOMPARE(Object::alive, 1);
    taken = Handle();
    QCOMPARE(Object::alive, 0);
}

void tst_KvLibrary::outParameters()
{
    Handle handle(new Object(7));
    QVERIFY(!callHost(false, handle.out()));
    QCOMPARE(handle->name, 7);

    QVERIFY(callHost(true, handle.out()));
    QCOMPARE(handle->name, 9);
    QCOMPARE(Object::alive, 1);

    const auto hosts = std::make_unique<Object>(8, Object::Parent::Host);
    const auto handsOutItsOwn = [&hosts](Object **out) { *out = hosts.get(); };
    handsOutItsOwn(handle.out());
    QVERIFY(handle.get() != hosts.get());
    QCOMPARE(handle->name, 8);
}

QTEST_APPLESS_MAIN(tst_KvLibrary)
#include "tst_KvLibrary.moc"
