// The command line of svg2dwg.

#pragma once

#include "SVGPreparation/SVGPreparation.h"

#include <QString>
#include <QStringList>

#include <variant>

/// What a run writes: drawings, or plain SVG files that IMPORTSVG draws completely.
enum class OutputFormat { Dwg, Dxf, PlainSvg };

/// What a format is called on the command line, which is also the ending of its files: "dwg", "dxf", "svg".
QString nameOf(OutputFormat format);

struct Options {
    QStringList inputs; ///< files and folders, as the user named them
    QString outputFolder;
    QString journalFile; ///< empty for none
    OutputFormat format = OutputFormat::Dwg;
    bool prepare = true; ///< false reads files as IMPORTSVG does
    svgprep::PreparationOptions preparation;
    bool explode = false;
    bool preview = false;
    bool dryRun = false;
    bool force = false;
    bool quiet = false;
};

/// An answer in place of a run: the help, the version, or what is wrong with the command line.
struct Answer {
    QString text;
    bool isError = false;
};

/// Reads the command line (`arguments` begins with the program's name).
std::variant<Options, Answer> optionsFrom(const QStringList &arguments);
