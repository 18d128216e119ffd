#include "ops/CacheRemoval.h"

#include "base/Translate.h"
#include "contracts/ShowError.h"

namespace {

constexpr const char* kAllKeys = "/LM/W3SVC";

class BusyMark {
public:
    explicit BusyMark(bool& mark) : m_mark(mark) { m_mark = true; }
    ~BusyMark() { m_mark = false; }
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;

private:
    bool& m_mark;
};

}  // namespace

void CacheRemoval::RemoveNodeCache()
{
    if (m_isBusy) return;
    const BusyMark busy(m_isBusy);
    const auto target = m_screen.SelectedTarget();
    if (!target) return;
    if (!target->isUrl) {
        if (!Confirm(Translate("CacheRemoval",
                               "This will delete all cache for this directory and all contained "
                               "subdirectories\r\nProceed?")))
            return;
        if (m_screen.SelectedTarget() != target) return;
    }
    if (!Delete(*target)) return;
    m_screen.TakeOut(*target);
    m_pump.Visit();  // keys pressed while the server worked were meant for what is gone, not for what is next
}

bool CacheRemoval::Delete(const RemovalTarget& target)
{
    const auto path = std::string(kAllKeys) + "/" + target.key;
    CWaitCursor wait(m_pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    const auto done = target.isUrl ? m_cache.DeleteEntry(path) : m_cache.DeleteTree(path);
    if (done) return true;
    wait.ShowCursor(ScreenPointer::Default);
    ShowError(m_boxes, Translate("CacheRemoval", "Cannot delete cache entry"), BoxStyle::Exclamation,
              done.error());
    return false;
}

void CacheRemoval::CleanCache()
{
    if (m_isBusy) return;
    const BusyMark busy(m_isBusy);
    if (!Confirm(Translate("CacheRemoval", "This will delete all Zentrel cache on this server\r\nProceed ?")))
        return;
    CWaitCursor wait(m_pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    const auto done = m_cache.DeleteTree(kAllKeys);
    if (done) return;
    wait.ShowCursor(ScreenPointer::Default);
    ShowError(m_boxes, Translate("CacheRemoval", "Cannot delete Zentrel cache"), BoxStyle::Exclamation,
              done.error());
}

void CacheRemoval::ResetCounters()
{
    const auto done = m_cache.ResetCounters(0);
    if (done) return;
    ShowError(m_boxes, Translate("CacheRemoval", "Cannot reset Zentrel performance data"),
              BoxStyle::Exclamation, done.error());
}

bool CacheRemoval::Confirm(const std::string& question)
{
    return m_boxes.Show(question, BoxStyle::YesNoQuestion, m_screen.Caption()) == BoxAnswer::Yes;
}
