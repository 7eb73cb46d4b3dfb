// What add-ins had the host do in the course of one command.

#pragma once

#include "api/HostDocument.h"

namespace refhost {

struct CommandRecord {
    struct Insertion {
        HostDocumentPtr document;
        QString blockName;
        Placement placement;
    };

    QString name;
    QString appId;                       ///< of the add-in whose command it is; empty for the host's own
    std::vector<Insertion> insertions;   ///< of blocks into model space
    int saved = 0;                       ///< drawings saved
    QStringList notSaved;                ///< the names under which drawings could not be saved
    std::vector<HostDocumentPtr> opened; ///< empty drawings
    bool hasClosedNothing = false;       ///< a drawing without a name was to be closed
};

} // namespace refhost
