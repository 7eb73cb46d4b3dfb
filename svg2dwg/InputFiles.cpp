// Lists the SVG files of folders.

#include "InputFiles.h"

#include "FileList.h"
#include "FileNames.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

namespace {

/// A folder to list. The path leads to it; the name may hold bytes that are shown only.
struct Folder {
    std::filesystem::path path;
    QString name;
    QString outputFolder;
};

/// What a folder holds, by name.
struct Entries {
    QStringList files; ///< those that match
    std::vector<std::filesystem::path> folders;
    std::error_code error;
};

class Listing {
public:
    Listing(const Options &options, const QStringList &nameFilters)
        : m_nameFilters(nameFilters)
        , m_recursive(options.recursive)
        , m_outputFolder(options.outputFolder.toStdU16String())
    {
    }

    /// Adds the file `input`, or all files of the folder that it is. What was named before is left out.
    void add(const InputFile &input);

    InputFiles result;

private:
    void addFile(const InputFile &file);
    void addFolder(const InputFile &top);
    /// Adds the files of `folder`, and returns its subfolders.
    std::vector<Folder> addFilesOf(const Folder &folder);
    Entries entriesOf(const Folder &folder) const;
    bool isEntered(const std::filesystem::directory_entry &folder) const;

    QStringList m_nameFilters;
    bool m_recursive;
    std::filesystem::path m_outputFolder;
    QSet<QString> m_known; // inputs with their output folders
    int m_filesNamed = 0;
};

void Listing::add(const InputFile &input)
{
    if (!problemOfName(input.path).isEmpty() || !QFileInfo(input.path).isDir())
        addFile(input);
    else
        addFolder(input);
}

void Listing::addFile(const InputFile &file)
{
    const QString key = QDir::cleanPath(QDir().absoluteFilePath(file.path)) + QChar(0) + file.outputFolder;
    ++m_filesNamed;
    if (!m_known.contains(key))
        result.files << file;
    m_known.insert(key);
}

void Listing::addFolder(const InputFile &top)
{
    const auto found = [this] { return m_filesNamed + result.errors.size(); };
    const int foundBefore = found();
    std::vector<Folder> folders = {{top.path.toStdU16String(), top.path, top.outputFolder}};
    while (!folders.empty()) {
        const Folder folder = std::move(folders.back());
        folders.pop_back();
        std::vector<Folder> below = addFilesOf(folder);
        std::move(below.rbegin(), below.rend(), std::back_inserter(folders));
    }
    if (found() == foundBefore)
        result.errors << QStringLiteral("%1: the folder holds no SVG files").arg(top.path);
}

std::vector<Folder> Listing::addFilesOf(const Folder &folder)
{
    const Entries entries = entriesOf(folder);
    if (entries.error) {
        result.errors << QStringLiteral("%1: the folder cannot be read: %2")
                             .arg(folder.name, QString::fromLocal8Bit(entries.error.message().c_str()));
    }
    for (const QString &name : entries.files)
        addFile({QDir(folder.name).filePath(name), folder.outputFolder});

    std::vector<Folder> below;
    for (const std::filesystem::path &path : entries.folders) {
        const QString name = nameFrom(path.filename());
        const QString output = folder.outputFolder.isEmpty() ? name : folder.outputFolder + '/' + name;
        below.push_back({path, QDir(folder.name).filePath(name), output});
    }
    return below;
}

/// Qt's own list lacks links that lead nowhere and names that are not valid UTF-8.
Entries Listing::entriesOf(const Folder &folder) const
{
    Entries entries;
    std::filesystem::directory_iterator entry(folder.path, entries.error);
    for (; !entries.error && entry != std::filesystem::end(entry); entry.increment(entries.error)) {
        const QString name = nameFrom(entry->path().filename());
        std::error_code ofLink;
        // Qt: name filters match without regard to case, and never half a surrogate pair.
        if (entry->is_directory(ofLink)) {
            if (isEntered(*entry))
                entries.folders.push_back(entry->path());
        } else if (QDir::match(m_nameFilters, shown(name))) {
            entries.files << name;
        }
    }
    std::sort(entries.files.begin(), entries.files.end());
    std::sort(entries.folders.begin(), entries.folders.end());
    return entries;
}

bool Listing::isEntered(const std::filesystem::directory_entry &folder) const
{
    std::error_code error; // there may be no output folder yet
    return m_recursive && !folder.is_symlink(error)
        && !std::filesystem::equivalent(folder.path(), m_outputFolder, error);
}

/// The folder for the output of a list's `name`, a file or a folder. With subfolders a relative name keeps
/// its folders, so that parts of a list can be converted by runs of their own.
QString outputFolderOf(const QString &name, bool recursive)
{
    const QString path = QDir::cleanPath(name);
    if (!recursive || QDir::isAbsolutePath(path) || path == QLatin1String("..")
        || path.startsWith(QLatin1String("../")))
        return {};
    const QFileInfo file(path);
    const QString folder = problemOfName(name).isEmpty() && file.isDir() ? path : file.path();
    return folder == QLatin1String(".") ? QString() : folder;
}

} // namespace

InputFiles inputFilesFrom(const Options &options, const QStringList &nameFilters)
{
    Listing listing(options, nameFilters);
    for (const QString &path : options.inputs)
        listing.add({path, {}});
    for (const QString &fileName : options.lists) {
        const FileList list =
            fileListFrom(fileName, options.nullSeparated ? NameEnd::Null : NameEnd::LineBreak);
        for (const QString &name : list.names)
            listing.add({name, outputFolderOf(name, options.recursive)});
        if (!list.error.isEmpty())
            listing.result.errors << list.error;
    }
    return listing.result;
}
