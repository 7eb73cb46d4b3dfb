// The command line of svg2dwg.

#pragma once

#include "SVGPreparation/SVGPreparation.h"

#include <QString>
#include <QStringList>

#include <variant>

/// The files that a run writes: drawings, or plain SVG files that IMPORTSVG draws completely.
enum class OutputFormat { Dwg, Dxf, PlainSvg };

/// A format's name on the command line and suffix of its files: "dwg", "dxf", "svg".
QString nameOf(OutputFormat format);

struct Options {
    QStringList arguments;      ///< the command line itself
    QStringList inputs;         ///< files and folders, as the user named them
    QStringList lists;          ///< files that name further inputs; "-" is the standard input
    bool nullSeparated = false; ///< each name of a list ends with a NUL character, not with its line
    bool recursive = false;
    QString outputFolder;
    QString journalFile; ///< empty for none
    OutputFormat format = OutputFormat::Dwg;
    bool prepare = true; ///< false reads files as IMPORTSVG does
    svgprep::PreparationOptions preparation;
    bool explode = false;
    bool preview = false;
    bool dryRun = false;
    bool force = false;
    bool update = false; ///< leaves out what is not newer than its output
    int jobs = 0;        ///< the files to convert at a time; 0 for as many as suit this machine
    bool quiet = false;
};

/// What is printed in place of a run: the help, the version, or what is wrong with the command line.
struct ConsoleMessage {
    QString text;
    bool isError = false;
};

/// Reads the command line (`arguments` begins with the program's name).
std::variant<Options, ConsoleMessage> optionsFrom(const QStringList &arguments);
