// Reads options and checks that they make sense together.

#include "Options.h"

#include "FileNames.h"

#include <QCommandLineParser>

#include <cmath>
#include <initializer_list>

namespace {

const auto synopsis = QStringLiteral("FILE|FOLDER... -o FOLDER");

const auto description = QStringLiteral(
    "Converts SVG files to drawings. Each file becomes one block at the origin of a drawing of its own;\n"
    "a folder stands for the SVG files in it (.svg and .svgz), without --recursive its subfolders left out.\n"
    "Files are prepared first: what IMPORTSVG would not read is rewritten, so that drawings look like their\n"
    "files.\n"
    "\n"
    "Examples:\n"
    "  svg2dwg plan.svg -o drawings             drawings/plan.dwg\n"
    "  svg2dwg plans -o drawings --preview      a .dwg and a .png for every SVG file in plans\n"
    "  svg2dwg plans -o drawings --explode      single entities instead of a block\n"
    "  svg2dwg plan.svg -o drawings --unit mm   a sheet of 210 mm is 210 units wide\n"
    "  svg2dwg plans -o plain --format svg      plain SVG files for IMPORTSVG\n"
    "  svg2dwg plan.svg --dry-run --journal -   what the host is asked to draw, and no file\n"
    "  svg2dwg plans -o drawings -r --update    what is new in plans and below\n"
    "\n"
    "Exit codes: 0 all files converted, 1 some not, 2 the command line makes no sense, 130 stopped by "
    "Ctrl+C.");

template <class Value>
struct Choice {
    const char *name;
    Value value;
};

constexpr Choice<OutputFormat> formats[] = {
    {"dwg", OutputFormat::Dwg},
    {"dxf", OutputFormat::Dxf},
    {"svg", OutputFormat::PlainSvg},
};

constexpr Choice<svgprep::DrawingUnit> units[] = {
    {"mm", svgprep::DrawingUnit::Millimetre}, {"cm", svgprep::DrawingUnit::Centimetre},
    {"m", svgprep::DrawingUnit::Metre},       {"in", svgprep::DrawingUnit::Inch},
    {"ft", svgprep::DrawingUnit::Foot},
};

constexpr Choice<svgprep::TextOutput> textOutputs[] = {
    {"notes", svgprep::TextOutput::Notes},
    {"outlines", svgprep::TextOutput::Outlines},
};

/// All options, and what was given of them.
struct CommandLine {
    const QCommandLineOption output{
        {"o", "output"}, "Puts the drawings into FOLDER, which is made when missing.", "FOLDER"};
    const QCommandLineOption filesFrom{
        "files-from",
        "Converts the files and folders that LIST names, one on each line (- reads the standard input).",
        "LIST"};
    const QCommandLineOption null{{"0", "null"},
                                  "The names in LIST end with a NUL character, not with the line."};
    const QCommandLineOption recursive{
        {"r", "recursive"},
        "Converts the files in subfolders too, into the same subfolders of the output folder."};
    const QCommandLineOption update{
        {"u", "update"}, "Converts only what is new or newer than its drawing; the rest counts as done."};
    const QCommandLineOption jobs{
        {"j", "jobs"}, "Converts N files at a time; as many as there are processor cores by default.", "N"};
    const QCommandLineOption format{"format",
                                    "Writes dwg (the default), dxf, or svg: plain SVG files that IMPORTSVG "
                                    "draws completely, and no drawings.",
                                    "dwg|dxf|svg"};
    const QCommandLineOption unit{
        "unit", "Draws in this unit, by the file's physical size. Otherwise one user unit is one unit.",
        "mm|cm|m|in|ft"};
    const QCommandLineOption text{
        "text", "Draws upright text as notes (the default), or all text as outlines.", "notes|outlines"};
    const QCommandLineOption flatten{
        "flatten", "Draws curves as polylines that stay within TOLERANCE drawing units.", "TOLERANCE"};
    const QCommandLineOption noPrepare{"no-prepare", "Reads files as they are, as IMPORTSVG does."};
    const QCommandLineOption explode{"explode", "Draws single entities into model space instead of a block."};
    const QCommandLineOption preview{"preview", "Writes a picture (PNG) beside each drawing."};
    const QCommandLineOption journal{
        "journal",
        "Writes every call of the host API to FILE, which must be new without --force (- prints them in the "
        "place of the table).",
        "FILE"};
    const QCommandLineOption dryRun{"dry-run", "Draws, but saves nothing; -o may be left out."};
    const QCommandLineOption force{"force", "Overwrites files that exist already, but never an input."};
    const QCommandLineOption quiet{{"q", "quiet"}, "Prints errors only."};
    const QCommandLineOption version{{"v", "version"}, "Prints the version."};
    const QCommandLineOption help{{"h", "help"}, "Prints this help."};

    QCommandLineParser parser;

    CommandLine()
    {
        parser.setApplicationDescription(description);
        parser.addOptions({output, filesFrom, null, recursive, update, jobs, format, unit, text, flatten,
                           noPrepare, explode, preview, journal, dryRun, force, quiet, version, help});
        parser.addPositionalArgument("FILE|FOLDER...", "SVG files, or folders with SVG files.", synopsis);
    }
    bool isSet(const QCommandLineOption &option) const { return parser.isSet(option); }
    QString value(const QCommandLineOption &option) const { return parser.value(option); }
};

ConsoleMessage usageError(const QString &problem)
{
    return {QStringLiteral("svg2dwg: %1\nUsage: svg2dwg [options] %2\nsvg2dwg --help says more.")
                .arg(shown(problem), synopsis),
            true};
}

QString dashed(const QCommandLineOption &option)
{
    return QStringLiteral("--") + option.names().last();
}

QString wrongValue(const CommandLine &line, const QCommandLineOption &option, const QString &expected)
{
    return QStringLiteral("%1 takes %2, not %3").arg(dashed(option), expected, line.value(option));
}

/// Sets `chosen` to the choice named by the value of `option`. Without the option it stays as it is. Returns
/// what is wrong with the value; empty when nothing is.
template <class Value, std::size_t count>
QString readChoice(const CommandLine &line, const QCommandLineOption &option,
                   const Choice<Value> (&choices)[count], Value &chosen)
{
    if (!line.isSet(option))
        return {};
    for (const Choice<Value> &choice : choices) {
        if (line.value(option) == QLatin1String(choice.name)) {
            chosen = choice.value;
            return {};
        }
    }
    return wrongValue(line, option, option.valueName());
}

/// The same for the number after --flatten.
QString readTolerance(const CommandLine &line, double &tolerance)
{
    if (!line.isSet(line.flatten))
        return {};
    bool isNumber = false;
    tolerance = line.value(line.flatten).toDouble(&isNumber);
    if (isNumber && std::isfinite(tolerance) && tolerance > 0.0)
        return {};
    return wrongValue(line, line.flatten, QStringLiteral("a number above 0"));
}

/// The same for the number after --jobs.
QString readJobs(const CommandLine &line, int &jobs)
{
    if (!line.isSet(line.jobs))
        return {};
    constexpr int most = 256;
    jobs = line.value(line.jobs).toInt();
    if (jobs >= 1 && jobs <= most)
        return {};
    return wrongValue(line, line.jobs, QStringLiteral("a whole number from 1 to %1").arg(most));
}

/// The options that exclude each other, as a sentence; empty when none do.
QString conflictIn(const CommandLine &line, const Options &options)
{
    const auto conflict = [&line](const QString &with,
                                  std::initializer_list<const QCommandLineOption *> excluded) -> QString {
        for (const QCommandLineOption *option : excluded) {
            if (line.isSet(*option))
                return QStringLiteral("%1 does not go with %2").arg(dashed(*option), with);
        }
        return {};
    };
    if (options.update && (options.force || options.dryRun))
        return conflict(dashed(line.update), {&line.force, &line.dryRun});
    if (options.format == OutputFormat::PlainSvg) {
        return conflict(QStringLiteral("--format svg"),
                        {&line.noPrepare, &line.explode, &line.preview, &line.journal});
    }
    if (!options.prepare)
        return conflict(dashed(line.noPrepare), {&line.unit, &line.text, &line.flatten});
    return {};
}

/// What is wrong with a folder or file name after an option; empty when nothing is.
QString wrongNameIn(const CommandLine &line)
{
    for (const QCommandLineOption *option : {&line.output, &line.filesFrom, &line.journal}) {
        for (const QString &name : line.parser.values(*option)) {
            if (!name.isEmpty() && !problemOfName(name).isEmpty())
                return QStringLiteral("%1 %2: %3").arg(dashed(*option), name, problemOfName(name));
        }
    }
    return {};
}

QString missingIn(const Options &options)
{
    if (options.lists.contains(QString()))
        return QStringLiteral("--files-from takes the name of a list, not ''");
    if (options.lists.isEmpty() && options.nullSeparated)
        return QStringLiteral("--null is about the names of a list: --files-from LIST is missing");
    if (options.inputs.isEmpty() && options.lists.isEmpty())
        return QStringLiteral("no SVG file is named");
    if (options.outputFolder.isEmpty() && !options.dryRun)
        return QStringLiteral("-o FOLDER is missing: where should the drawings go?");
    return {};
}

} // namespace

QString nameOf(OutputFormat format)
{
    for (const Choice<OutputFormat> &choice : formats) {
        if (choice.value == format)
            return QLatin1String(choice.name);
    }
    return {};
}

std::variant<Options, ConsoleMessage> optionsFrom(const QStringList &arguments)
{
    CommandLine line;
    if (!line.parser.parse(arguments))
        return usageError(line.parser.errorText());
    if (line.isSet(line.help))
        return ConsoleMessage{line.parser.helpText().trimmed()};
    if (line.isSet(line.version))
        return ConsoleMessage{QStringLiteral("svg2dwg " SVG2DWG_VERSION)};

    Options options;
    options.arguments = arguments;
    options.inputs = line.parser.positionalArguments();
    options.lists = line.parser.values(line.filesFrom);
    options.nullSeparated = line.isSet(line.null);
    options.recursive = line.isSet(line.recursive);
    options.outputFolder = line.value(line.output);
    options.journalFile = line.value(line.journal);
    options.prepare = !line.isSet(line.noPrepare);
    options.explode = line.isSet(line.explode);
    options.preview = line.isSet(line.preview);
    options.dryRun = line.isSet(line.dryRun);
    options.force = line.isSet(line.force);
    options.update = line.isSet(line.update);
    options.quiet = line.isSet(line.quiet);

    svgprep::PreparationOptions &preparation = options.preparation;
    const QString problems[] = {
        readChoice(line, line.format, formats, options.format),
        readChoice(line, line.unit, units, preparation.unit),
        readChoice(line, line.text, textOutputs, preparation.text),
        readTolerance(line, preparation.flattenTolerance),
        readJobs(line, options.jobs),
        conflictIn(line, options),
        wrongNameIn(line),
        missingIn(options),
    };
    for (const QString &problem : problems) {
        if (!problem.isEmpty())
            return usageError(problem);
    }
    return options;
}
