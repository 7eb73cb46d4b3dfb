// Reads options and checks that together they make sense.

#include "Options.h"

#include <QCommandLineParser>

#include <optional>

namespace {

const auto synopsis = QStringLiteral("FILE|FOLDER... -o FOLDER");

const auto description = QStringLiteral(
    "Converts SVG files to drawings. Each file becomes one block at the origin of a drawing of its own;\n"
    "a folder stands for the SVG files in it, its subfolders left out.\n"
    "\n"
    "Examples:\n"
    "  svg2dwg plan.svg -o drawings             drawings/plan.dwg\n"
    "  svg2dwg plans -o drawings --preview      a .dwg and a .png for every SVG file in plans\n"
    "  svg2dwg plans -o drawings --explode      single entities instead of a block\n"
    "  svg2dwg plan.svg --dry-run --journal -   what the host is asked to draw, and no file\n"
    "\n"
    "Exit codes: 0 all files converted, 1 some not, 2 the command line makes no sense.");

std::optional<refhost::DrawingFormat> formatNamed(const QString &name)
{
    if (name == QLatin1String("dwg"))
        return refhost::DrawingFormat::Dwg;
    if (name == QLatin1String("dxf"))
        return refhost::DrawingFormat::Dxf;
    return {};
}

Answer usageError(const QString &problem)
{
    return {QStringLiteral("svg2dwg: %1\nUsage: svg2dwg [options] %2\nsvg2dwg --help says more.")
                .arg(problem, synopsis),
            true};
}

} // namespace

std::variant<Options, Answer> optionsFrom(const QStringList &arguments)
{
    const QCommandLineOption output({"o", "output"},
                                    "Puts the drawings into FOLDER, which is made when missing.", "FOLDER");
    const QCommandLineOption explode("explode", "Draws single entities into model space instead of a block.");
    const QCommandLineOption format("format", "Writes dwg (the default) or dxf.", "dwg|dxf", "dwg");
    const QCommandLineOption preview("preview", "Writes a picture (PNG) beside each drawing.");
    const QCommandLineOption journal(
        "journal", "Writes every call of the host API to FILE (- prints them in the place of the table).",
        "FILE");
    const QCommandLineOption dryRun("dry-run", "Draws, but saves nothing; -o may be left out.");
    const QCommandLineOption force("force", "Overwrites drawings and pictures that exist already.");
    const QCommandLineOption quiet({"q", "quiet"}, "Prints errors only.");
    const QCommandLineOption version({"v", "version"}, "Prints the version.");
    const QCommandLineOption help({"h", "help"}, "Prints this help.");

    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addOptions({output, explode, format, preview, journal, dryRun, force, quiet, version, help});
    parser.addPositionalArgument("FILE|FOLDER...", "SVG files, or folders with SVG files.", synopsis);

    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(help))
        return Answer{parser.helpText().trimmed()};
    if (parser.isSet(version))
        return Answer{QStringLiteral("svg2dwg " SVG2DWG_VERSION)};

    const auto chosenFormat = formatNamed(parser.value(format));
    if (!chosenFormat)
        return usageError(QStringLiteral("unknown format: %1").arg(parser.value(format)));

    Options options;
    options.inputs = parser.positionalArguments();
    options.outputFolder = parser.value(output);
    options.journalFile = parser.value(journal);
    options.format = *chosenFormat;
    options.explode = parser.isSet(explode);
    options.preview = parser.isSet(preview);
    options.dryRun = parser.isSet(dryRun);
    options.force = parser.isSet(force);
    options.quiet = parser.isSet(quiet);

    if (options.inputs.isEmpty())
        return usageError(QStringLiteral("no SVG file is named"));
    if (options.outputFolder.isEmpty() && !options.dryRun)
        return usageError(QStringLiteral("-o FOLDER is missing: where should the drawings go?"));
    return options;
}
