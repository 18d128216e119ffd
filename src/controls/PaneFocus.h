#pragma once

class Panes;
class QWidget;

// Gives the focus to a control: to where it was in it last, to itself, or to the first in it that takes it.
// False when nothing there does, or nothing of it is seen.
bool FocusControl(QWidget* control);

// Takes the focus to the next, or previous, visible pane of the tree, round and round. False when there is
// no other pane that takes it.
bool FocusNextPane(const Panes& top, bool isForward);

// Makes Tab follow the eye through a tree of splitters: pane 1, the bar, pane 2. Within a pane the order
// stays. To be called when the panes are filled.
void OrderTabs(const Panes& top);
