// The user's settings of the host, kept from one start to the next.

#pragma once

#include "api/HostSession.h"

namespace refhost {

/// The stored settings; the default for each that was never stored.
HostSettings loadHostSettings();

void saveHostSettings(const HostSettings &settings);

/// Stores `folder` as the one that an import's file dialog starts in, unless a folder that exists is stored.
void keepImportFolder(const QString &folder);

/// Stores `folder` as that of the drawing last opened or saved.
void keepDrawingFolder(const QString &folder);
/// The folder stored so; empty when there is none or it is gone.
QString loadDrawingFolder();

/// The folders that the user worked in last when preparing SVG files.
struct PreparationFolders {
    QString files;  ///< those that were prepared
    QString copies; ///< their plain copies
};

/// The stored folders, each empty when it is gone or was never stored; in the place of that of the files the
/// one that an import's file dialog starts in.
PreparationFolders loadPreparationFolders();

void savePreparationFolders(const PreparationFolders &folders);

/// Whether both mean the same for the next start.
bool isSame(const HostSettings &first, const HostSettings &second);

/// A language of the host as add-ins are told it. The host's own texts are English whichever it is.
struct HostLanguage {
    kvLanguage_e value;
    const char *name;   ///< English
    const char *locale; ///< what Qt calls it, "pt_BR"
};

/// All languages, English first, the others by name.
const std::vector<HostLanguage> &hostLanguages();

} // namespace refhost
