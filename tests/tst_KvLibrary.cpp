// The SDK's own types: texts, arrays, and who deletes a host object.

#include "kvArray.h"
#include "kvInterfacePtr.h"
#include "kvTextConversion.h"

#include <QtTest>

#include <memory>

namespace {

/// A host object that tells how many of its kind are alive; copies keep the name.
class Object final : public kvBaseObject_c {
public:
    explicit Object(int objectName, bool isHosts = false)
        : name(objectName)
        , m_isHosts(isHosts)
    {
        ++alive;
    }
    ~Object() override { --alive; }

    bool HasParent() const override { return m_isHosts; }
    kvBaseObject_c *Clone() const override { return refusesClones ? nullptr : new Object(name); }

    const int name;
    bool refusesClones = false;

    static int alive;

private:
    bool m_isHosts;
};

int Object::alive = 0;

using Handle = kvInterfacePtr<Object>;

} // namespace

class tst_KvLibrary : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(Object::alive, 0); }

    void texts();
    void numbersThatAreNoCharacters();
    void compare();
    void arrays();

    void heldObjectsAreDeletedOnce();
    void hostsOwnObjectsAreCopied();
    void outParameters();
};

void tst_KvLibrary::texts()
{
    const QString reversedMark(QChar(0xFFFE));
    for (const QString &text :
         {QString(), QString("T\u00fcr \u00d8 40 \u20ac"), QString("\uFFFD\U00010000a\U0010FFFF"),
          QString("\U0001F4D0"), QString("\uFEFFlabel"), reversedMark + "label"})
        QCOMPARE(toQString(toKvString(text)), text);
    // A zero character ends a text.
    QCOMPARE(toQString(toKvString(QString::fromUtf8("ab\0cd", 5))), QStringLiteral("ab"));
    QCOMPARE(toQString(kvString(nullptr)), QString());
}

void tst_KvLibrary::numbersThatAreNoCharacters()
{
    if (sizeof(wchar_t) < 4)
        QSKIP("wide characters are UTF-16 units here");
    const wchar_t wide[] = {'a', wchar_t(0x110000), wchar_t(-1), '\0'};
    QCOMPARE(toQString(kvString(wide)), QStringLiteral("a\uFFFD\uFFFD"));
}

void tst_KvLibrary::compare()
{
    const auto compared = [](const QString &first, const QString &second) {
        return toKvString(first).Compare(toKvString(second));
    };
    QVERIFY(compared("ID_Import", "ID_Import") == 0);
    QVERIFY(compared("ID_IMPORT", "ID_Import") < 0);
    QVERIFY(compared("ab", "a") > 0);
    // Code units decide, not characters: a pair begins below U+FFEE.
    QVERIFY(compared("\uFFEE", "\U0001F4D0") > 0);
}

void tst_KvLibrary::arrays()
{
    kvDoubleArray points;
    points.add(1.5);
    points.setSize(-1);
    QCOMPARE(points.getSize(), 0);
    points.setSize(1);
    QCOMPARE(points[0], 0.0);

    const auto object = std::make_unique<Object>(1);
    kvObjectPtrArray objects;
    objects.add(object.get());
    objects = {};
    QCOMPARE(Object::alive, 1);
}

void tst_KvLibrary::heldObjectsAreDeletedOnce()
{
    Handle handle(new Object(5));
    handle = Handle(new Object(6));
    const Handle &itself = handle;
    handle = itself;
    QCOMPARE(handle->name, 6);
    QCOMPARE(Object::alive, 1);

    Handle copy(handle);
    QVERIFY(copy.get() != handle.get());
    Handle taken(std::move(handle));
    taken.Release();
    QCOMPARE(copy->name, 6);
    QCOMPARE(Object::alive, 1);
    taken.Release();
    QVERIFY(!taken && !Handle(taken));
}

void tst_KvLibrary::hostsOwnObjectsAreCopied()
{
    const auto hosts = std::make_unique<Object>(3, true);
    {
        const Handle handle(hosts.get());
        QVERIFY(handle.get() != hosts.get());
        QCOMPARE(handle->name, 3);
    }
    QCOMPARE(Object::alive, 1);
    hosts->refusesClones = true;
    QVERIFY(!Handle(hosts.get()));
}

void tst_KvLibrary::outParameters()
{
    const auto hosts = std::make_unique<Object>(8, true);
    Handle handle(new Object(7));
    const auto handOut = [](Object *object, Object **out) { *out = object; };
    handOut(nullptr, handle.out());
    QCOMPARE(handle->name, 7);
    handOut(new Object(9), handle.out());
    QCOMPARE(handle->name, 9);
    handOut(hosts.get(), handle.out());
    QVERIFY(handle.get() != hosts.get());
    QCOMPARE(handle->name, 8);
    QCOMPARE(Object::alive, 2);
}

QTEST_APPLESS_MAIN(tst_KvLibrary)
#include "tst_KvLibrary.moc"
