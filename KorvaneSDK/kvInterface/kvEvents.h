// The two event classes that an add-in derives from. They are no host objects, unlike all other classes of
// the API: they have no common base and no virtual destructor, and every operation has a body that returns
// true.

#pragma once

#include "kvLibraryExport.h"

/// Events of the host application. The parameters belong to the host; a callback that has no use for them
/// ignores them.
class KVINTERFACE_EXPORT kvApplicationEvents_c {
public:
    virtual bool Notify0(void * /*object*/) { return true; }
    virtual bool Notify1(void * /*object*/, int /*value*/) { return true; }
    virtual bool Notify2(void * /*object*/) { return true; }
    virtual bool Notify3() { return true; }
    virtual bool Notify4() { return true; }
    virtual bool Notify5(void * /*first*/, void * /*second*/) { return true; }
    virtual bool Notify6(void * /*first*/, void * /*second*/) { return true; }
    virtual bool Notify7(void * /*first*/, void * /*second*/) { return true; }
    virtual bool Notify8(int /*value*/) { return true; }
    virtual bool Notify9(int /*value*/) { return true; }
    virtual bool Notify10(int /*value*/) { return true; }
    virtual bool Notify11(int /*value*/) { return true; }
    virtual bool Notify12(int /*value*/) { return true; }
    virtual bool Notify13() { return true; }
    virtual bool Notify14(void * /*first*/, void * /*second*/) { return true; }
    virtual bool Notify15() { return true; }
    virtual bool Notify16(void * /*object*/) { return true; }
    virtual bool Notify17(void * /*object*/) { return true; }
    virtual bool Notify18() { return true; }
    virtual bool Notify19() { return true; }
    virtual bool Notify20() { return true; }

protected:
    ~kvApplicationEvents_c() = default;
};

/// Events of one command.
class KVINTERFACE_EXPORT kvCommandEvents_c {
public:
    /// The user started the command. It runs until this call returns.
    virtual bool ExecuteNotify() { return true; }

protected:
    ~kvCommandEvents_c() = default;
};
