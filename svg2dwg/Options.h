// The command line of svg2dwg.

#pragma once

#include "export/DrawingWriter.h"

#include <QString>
#include <QStringList>

#include <variant>

struct Options {
    QStringList inputs; ///< files and folders, as the user named them
    QString outputFolder;
    QString journalFile; ///< empty for none
    refhost::DrawingFormat format = refhost::DrawingFormat::Dwg;
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
