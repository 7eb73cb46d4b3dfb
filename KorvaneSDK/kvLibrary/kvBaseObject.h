// The root of every host object that an add-in can hold.

#pragma once

#include "kvLibraryExport.h"

/// A light handle of a host object: deleting the handle never deletes the object itself.
class KVLIBRARY_EXPORT kvBaseObject_c {
public:
    kvBaseObject_c() = default;
    virtual ~kvBaseObject_c();

    kvBaseObject_c(const kvBaseObject_c &) = delete;
    kvBaseObject_c &operator=(const kvBaseObject_c &) = delete;

    /// Whether the host itself owns this handle (the application given at connect, a command). An add-in must
    /// not delete such a handle.
    virtual bool HasParent() const = 0;

    /// A fresh handle of the same object, without a parent; the caller owns it. Null when the host refuses.
    virtual kvBaseObject_c *Clone() const = 0;
};
