#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "zentrel/Admin.h"

#include <cstdint>
#include <optional>
#include <string>

// A node of the tree whose cache can be deleted.
struct RemovalTarget {
    std::uint32_t node = 0;  // as the screen knows it
    bool isUrl = false;      // one cached URL; else all below the node
    std::string key;         // below "/LM/W3SVC/"; empty for the root

    friend bool operator==(const RemovalTarget&, const RemovalTarget&) = default;
};

// What a removal needs of the window that shows the tree.
class RemovalScreen {
public:
    virtual ~RemovalScreen() = default;
    virtual std::optional<RemovalTarget> SelectedTarget() const = 0;
    virtual void TakeOut(const RemovalTarget& target) = 0;  // its cache is gone: tree and totals follow
    virtual std::string Caption() const = 0;                // the window's, the title of questions
};

// Deletes what a server has cached and resets its counters: asks the user, calls the service and reports
// failures. Questions and the end of a removal let messages run.
class CacheRemoval {
public:
    CacheRemoval(zentrel::CacheAdmin& cache, RemovalScreen& screen, MessageBoxes& boxes, MessagePump& pump,
                 ScreenPointer& pointer)
        : m_cache(cache),
          m_screen(screen),
          m_boxes(boxes),
          m_pump(pump),
          m_pointer(pointer)
    {
    }

    // Of the selected node. Nothing happens when the user chose or rescanned something else while the
    // question stood.
    void RemoveNodeCache();
    void CleanCache();  // of the whole server; the tree keeps showing the last scan
    void ResetCounters();

    bool IsBusy() const { return m_isBusy; }  // a question or a deletion is under way

private:
    bool Confirm(const std::string& question);
    bool Delete(const RemovalTarget& target);

    zentrel::CacheAdmin& m_cache;
    RemovalScreen& m_screen;
    MessageBoxes& m_boxes;
    MessagePump& m_pump;
    ScreenPointer& m_pointer;
    bool m_isBusy = false;
};
