// A record of the changes that add-ins made through the host during one command.

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
    QString appId;                       ///< of the command's add-in; empty for the host's own
    std::vector<Insertion> insertions;   ///< of blocks into model space
    int saved = 0;                       ///< drawings saved
    QStringList notSaved;                ///< the names under which drawings could not be saved
    std::vector<HostDocumentPtr> opened; ///< empty drawings
    bool hasClosedNothing = false;       ///< a call has asked to close a drawing without a name
};

} // namespace refhost
