#pragma once
// The cairo graphics library, loaded when the first graph is drawn rather than when the
// program starts. Cairo and the eighteen libraries it needs (pixman, fontconfig,
// freetype, libpng, X11, xcb, ...) cost about half of the headless program's start-up,
// and most runs (a batch job that reads, analyses and lists) draw nothing.
//
// The cairo functions the program uses are defined in cairo_library.cpp: each finds
// its function in libcairo.so.2 at its first call. Call cairo_ready() before drawing:
// when the library cannot be loaded, a cairo function must not be called.
#include <string>

namespace tidemark::render {

// Loads libcairo.so.2 (once); false, with the loader's reason in `problem`, when it
// cannot be loaded.
bool cairo_ready(std::string& problem);

}  // namespace tidemark::render
