// What scripts/performance measures against: drawings of a given size, and the time that Qt alone needs to
// parse one as often as every import does.

#include "BenchmarkDrawings.h"

#include <QDomDocument>
#include <QFile>
#include <QStringList>

#include <cstdio>

namespace {

struct Shape {
    const char *name;
    QByteArray (*svg)(int size);
};

constexpr Shape shapes[] = {
    {"elements", mixedSvg}, {"longElements", longElementsSvg},
    {"levels", deepSvg},    {"attribute", longAttributeSvg},
    {"path", longPathSvg},  {"transform", sharedTransformSvg},
    {"texts", textsSvg},
};

bool write(const QString &shapeName, int size, const QString &path)
{
    for (const Shape &shape : shapes) {
        if (shapeName != QLatin1String(shape.name))
            continue;
        const QByteArray svg = shape.svg(size);
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(svg) == svg.size();
    }
    return false;
}

bool parseTwice(const QString &path)
{
    for (int pass = 0; pass < 2; ++pass) {
        QFile file(path);
        QDomDocument document;
        if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QStringList arguments(argv + 1, argv + argc);
    if (arguments.size() == 1)
        return parseTwice(arguments[0]) ? 0 : 1;
    if (arguments.size() == 3)
        return write(arguments[0], arguments[1].toInt(), arguments[2]) ? 0 : 1;
    std::fputs("plain_qt FILE              parses the file twice\n"
               "plain_qt SHAPE SIZE FILE   writes a drawing\n",
               stderr);
    return 2;
}
