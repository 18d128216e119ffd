#include "zentrel/FolderWalk.h"

#include "zentrel/Directory.h"

#include <algorithm>
#include <functional>

namespace zentrel {

namespace {

void SortLastFirst(std::vector<std::string>& names)
{
    std::sort(names.begin(), names.end(), std::greater<>());
}

}  // namespace

FolderWalk::FolderWalk(std::filesystem::path folder, std::string start, LeavesOut leavesOut)
    : m_folder(std::move(folder)),
      m_leavesOut(std::move(leavesOut)),
      m_folders{std::move(start)}
{
}

std::optional<std::string> FolderWalk::Next()
{
    while (m_files.empty()) {
        if (m_folders.empty()) return std::nullopt;
        const auto relative = std::move(m_folders.back());
        m_folders.pop_back();
        List(relative);
    }
    auto file = std::move(m_files.back());
    m_files.pop_back();
    return file;
}

void FolderWalk::List(const std::string& relative)
{
    const auto path = relative.empty() ? m_folder : m_folder / relative;
    const auto directory = Directory::Open(path);
    if (!directory) return;
    std::vector<std::string> folders;
    while (const auto* found = directory->Next()) {
        const auto type = directory->TypeOf(*found);
        if (type != DT_DIR && type != DT_REG && type != DT_LNK) continue;
        const std::string name(found->d_name);
        auto below = relative.empty() ? name : relative + '/' + name;
        if (!m_leavesOut(below)) (type == DT_DIR ? folders : m_files).push_back(std::move(below));
    }
    SortLastFirst(m_files);
    SortLastFirst(folders);
    m_folders.insert(m_folders.end(), std::make_move_iterator(folders.begin()),
                     std::make_move_iterator(folders.end()));
}

}  // namespace zentrel
