// A running host with one empty drawing whose journal is kept in memory.

#pragma once

#include "api/HostSession.h"

#include <QByteArrayList>

class RecordingHost {
public:
    RecordingHost()
    {
        session.newDocument();
        begin();
    }

    /// Starts the journal anew: no calls yet, objects counted from 1.
    void begin()
    {
        calls.clear();
        session.journal().begin([this](const QByteArray &line) { calls.append(line); });
    }

    kvApplication_c *application() const { return session.application(); }
    refhost::Drawing &drawing() const { return session.activeDocument()->drawing; }

    QByteArrayList calls; // outlives the session, which may still write while it closes
    refhost::HostSession session;
};
