// The SVG texts that the benchmarks read.

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// An SVG text of `elements` drawable elements of all kinds in equal parts, some hundred bytes each, in
/// groups of twenty that carry a matrix.
QByteArray mixedSvg(int elements);

/// An SVG text of one path whose straight and curve commands have `numbers` numbers in all.
QByteArray longPathSvg(int numbers);

/// `svgText` in a temporary file that lives as long as this object.
class SvgFile {
public:
    explicit SvgFile(const QByteArray &svgText);

    QString path() const { return m_folder.filePath(QStringLiteral("drawing.svg")); }

private:
    QTemporaryDir m_folder;
};
