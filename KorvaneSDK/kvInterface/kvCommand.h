// Commands as the host knows them, and the entries of its user interface that start them.

#pragma once

#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

/// A command that can be typed on the command line. The host owns the handle.
class KVINTERFACE_EXPORT kvCommand_c : public kvBaseObject_c {
public:
    /// Has the host call `callback(data)` for `event`; `callback` is a `bool (*)(void *)`. One callback per
    /// event: a second one takes the first one's place.
    virtual kvResult RegisterEvent(kvCommandEvent_id_e event, void *data, void *callback) = 0;
};

/// What toolbar buttons, menu items and ribbon buttons refer to: command line, description and icons.
class KVINTERFACE_EXPORT kvUserCommand_c : public kvBaseObject_c {
public:
    /// The id by which user interface items name this user command.
    virtual kvResult GetID(kvString *id) = 0;
};
