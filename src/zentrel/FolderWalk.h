#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zentrel {

// Lists the files below a folder, each folder's own in byte order and then those of its subfolders.
// Follows no link to a folder and passes over what it cannot read. Holds the names of one folder and of
// the folders still to come.
class FolderWalk {
public:
    // Paths are relative to `folder`. `start`: the folder below it to begin at, empty for itself.
    // `leavesOut`: names of files and folders that are not looked at.
    using LeavesOut = std::function<bool(const std::string& relative)>;
    FolderWalk(std::filesystem::path folder, std::string start, LeavesOut leavesOut);

    std::optional<std::string> Next();  // regular files and links

private:
    void List(const std::string& relative);

    std::filesystem::path m_folder;
    LeavesOut m_leavesOut;
    std::vector<std::string> m_folders;  // to come; the next one last
    std::vector<std::string> m_files;    // of the folder that was listed last; the next one last
};

}  // namespace zentrel
