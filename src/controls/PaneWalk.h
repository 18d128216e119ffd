#pragma once

#include <vector>

class Pane;
class Panes;

// The panes that the user sees in a tree, in the order of the tree: visible, with a control of their own that
// is no splitter.
std::vector<Pane*> VisibleLeaves(const Panes& top);

// The leaf after `from`, or before it, round and round; the first, or the last, when `from` is none of them.
// Null when no leaf is visible.
Pane* NextLeaf(const Panes& top, const Pane* from, bool isForward);
