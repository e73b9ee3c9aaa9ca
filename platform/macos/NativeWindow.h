#pragma once

#include <QWindow>

#include <AppKit/AppKit.h>

// The system's window of one of ours; nil before it was made.
NSWindow* nativeWindow(const QWindow& window);
// Puts a shown window above everything else, on every space and beside full-screen programs too, and in the
// system's order at once. Qt gives a window its own level whenever it shows it, so this comes after that.
void keepAboveEverything(NSWindow* window);
