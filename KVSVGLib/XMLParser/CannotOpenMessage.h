// The reader's only message. It goes through one replaceable function, so that a program without windows can
// report in its own way instead of waiting for a click.

#pragma once

#include <QString>

#include <functional>

/// Tells the user that the file at `path` cannot be opened.
using CannotOpenMessage = std::function<void(const QString &path)>;

/// Puts `message` in the place of the one in use, which is returned. An empty function brings the message box
/// back, the one in use at the start.
CannotOpenMessage setCannotOpenMessage(CannotOpenMessage message);

/// Shows the message in use; returns when the user has read it.
void showCannotOpenMessage(const QString &path);
