// Runs the reader in a process of its own, with a time limit: a damaged drawing may make it hang.

#include "ReadBack.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>
#include <cmath>

std::vector<QJsonObject> readAllBack(const QStringList &fileNames, const QString &reader)
{
    constexpr int longest = 60'000; // ms
    QStringList arguments = {QStringLiteral(KORVANE_READBACK)};
    arguments << fileNames;
    if (!reader.isEmpty())
        arguments << QStringLiteral("--reader") << reader;
    QProcess process;
    process.start(QStringLiteral("node"), arguments);
    if (!process.waitForFinished(longest) || process.exitCode() != 0) {
        qWarning() << process.errorString() << process.readAllStandardError();
        return {};
    }
    std::vector<QJsonObject> drawings;
    for (const QByteArray &line : process.readAllStandardOutput().trimmed().split('\n'))
        drawings.push_back(QJsonDocument::fromJson(line).object());
    return drawings;
}

QJsonObject readBack(const QString &fileName, const QString &reader)
{
    const std::vector<QJsonObject> drawings = readAllBack({fileName}, reader);
    return drawings.empty() ? QJsonObject() : drawings.front();
}

bool isClose(const QJsonValue &actual, const QJsonValue &expected)
{
    if (expected.isDouble())
        return std::abs(actual.toDouble(qInf()) - expected.toDouble())
            <= 1e-12 * (1 + std::abs(expected.toDouble()));
    if (expected.isArray()) {
        const QJsonArray first = actual.toArray();
        const QJsonArray second = expected.toArray();
        return first.size() == second.size()
            && std::equal(first.begin(), first.end(), second.begin(), isClose);
    }
    if (expected.isObject()) {
        const QJsonObject object = expected.toObject();
        const QStringList keys = object.keys();
        return std::all_of(keys.begin(), keys.end(), [&](const QString &key) {
            return isClose(actual.toObject().value(key), object.value(key));
        });
    }
    return actual == expected;
}
