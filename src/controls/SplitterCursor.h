#pragma once

#include <QCursor>

// The cursor over a splitter's bar. style 0: the system's sizing cursor; any other: the program's own, drawn
// for screens of that device pixel ratio. orientation 0: west-east; 1: north-south.
QCursor SplitterCursor(int style, int orientation, qreal devicePixelRatio);
