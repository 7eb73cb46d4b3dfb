// The SVG texts that the benchmarks read.

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// An SVG text of `elements` drawable elements of all kinds in equal parts, some hundred bytes each, in
/// groups of twenty that carry a matrix.
QByteArray mixedSvg(int elements);

/// An SVG text of `elements` elements as drawing programs write them: relative paths with arcs, uses, styles
/// and transforms. It has to be prepared.
QByteArray unpreparedSvg(int elements);

/// An SVG text of one path with `numbers` numbers, as a map's outline has them: runs of twenty straight
/// points and of five curve segments.
QByteArray longPathSvg(int numbers);

/// The same count of numbers in the shortest commands, one for every four numbers: the most entities that a
/// text of that size can give.
QByteArray shortCommandsSvg(int numbers);

/// The elements of mixedSvg() with one more attribute, 150 bytes each.
QByteArray longElementsSvg(int elements);

/// Chains of groups as deep as the reader allows, with a line in each group; `elements` lines in all.
QByteArray deepSvg(int elements);

/// One line with an unknown attribute of `characters` characters.
QByteArray longAttributeSvg(int characters);

/// A group with a matrix written in `characters` characters, and one line for every ten of them.
QByteArray sharedTransformSvg(int characters);

/// `texts` short texts.
QByteArray textsSvg(int texts);

/// `svgText` in a temporary file that lives as long as this object.
class SvgFile {
public:
    explicit SvgFile(const QByteArray &svgText);

    QString path() const { return m_folder.filePath(QStringLiteral("drawing.svg")); }

private:
    QTemporaryDir m_folder;
};
