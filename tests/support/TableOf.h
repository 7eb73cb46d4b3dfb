// The columns of a _data() table in one line.

#pragma once

#include <QtTest>

/// Declares the columns of a _data() table by their types and names. Answers with what adds a row:
///     const auto row = tableOf<QString, int>("text", "length");
///     row("an empty text", "", 0);
template <class... Columns, class... Names>
auto tableOf(Names... names)
{
    (QTest::addColumn<Columns>(names), ...);
    return [](const char *sentence, const Columns &...cells) {
        QTestData &row = QTest::newRow(sentence);
        (row << ... << cells);
    };
}
