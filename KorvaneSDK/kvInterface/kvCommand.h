// Commands as the host knows them, and the entries of its user interface that start them.

#pragma once

#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

/// A command that the user can type on the command line. The host owns the handle.
class KVINTERFACE_EXPORT kvCommand_c : public kvBaseObject_c {
public:
    /// Lets the host call `callback(data)` for `event`. `callback` is a `bool (*)(void *)`. An event has one
    /// callback: a second one replaces the first.
    virtual kvResult RegisterEvent(kvCommandEvent_id_e event, void *data, void *callback) = 0;
};

/// The command line, description and icons that toolbar buttons, menu items and ribbon buttons refer to.
class KVINTERFACE_EXPORT kvUserCommand_c : public kvBaseObject_c {
public:
    /// Gives the id by which user interface items name this user command. A failure leaves `id` untouched.
    virtual kvResult GetID(kvString *id) = 0;
};
