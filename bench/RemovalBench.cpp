#include "BenchWindow.h"
#include "Benches.h"

namespace {

using std::filesystem::path;

constexpr std::uint32_t kUrls = 1'000'000;
constexpr std::uint32_t kFolderUrls = 100'000;  // that one of the site's folders holds
constexpr std::uint32_t kSubfolderUrls = 100;

FileInfo OneFile()
{
    FileInfo info;
    info.Count = 1;
    info.CompLevel = 6;
    info.UncompressedSize = 4'000;
    info.CompressedSize = 1'000;
    return info;
}

std::string NameOf(const char* what, std::uint32_t number)
{
    return what + std::to_string(number + 1'000'000);  // in ascending order, as a server sends them
}

// One site of ten folders with a thousand folders each.
void Fill(CacheTree& tree)
{
    const auto info = OneFile();
    const auto site = tree.AddChild(tree.AddRoot(), "1/Root", NodeKind::WebSite);
    auto folder = kNoNode;
    auto subfolder = kNoNode;
    for (std::uint32_t i = 0; i < kUrls; ++i) {
        if (i % kFolderUrls == 0) folder = tree.AddChild(site, NameOf("section", i), NodeKind::Folder);
        if (i % kSubfolderUrls == 0) subfolder = tree.AddChild(folder, NameOf("part", i), NodeKind::Folder);
        tree.SetInfo(tree.AddChild(subfolder, NameOf("page", i), NodeKind::File), info);
    }
}

// What the tree takes to be without a node, the selected one, until the view shows it.
void TakeOut(benchmark::State& state, const path& data, bool isExpanded, bool isFile)
{
    for ([[maybe_unused]] auto _ : state) {
        BenchWindow box(data);
        auto& tree = box.state.contents.tree;
        box.Empty();
        Fill(tree);
        box.window.ShowContents();
        auto& view = *box.window.trvFiles;
        auto& model = static_cast<CacheTreeModel&>(*view.model());
        const auto site = tree.Child(tree.Root(), 0);
        const auto folder = tree.Child(site, 4);
        const auto node = isFile ? tree.Child(tree.Child(folder, 500), 50) : folder;
        if (isExpanded)
            view.expandAll();
        else
            view.expand(model.IndexOf(site));
        view.setCurrentIndex(model.IndexOf(node));
        box.Paint();
        const auto start = std::chrono::steady_clock::now();
        model.TakeOut(tree, node);
        box.Paint();
        state.SetIterationTime(SecondsSince(start));
        if (CacheTreeModel::NodeOf(view.currentIndex()) == node) return state.SkipWithError("not taken out");
    }
}

}  // namespace

void RegisterRemovalBenches(const path& scratch)
{
    const auto data = scratch / "removal";  // an empty server to be connected to
    if (!zentrel::Service::Init(data)) return;
    Register("remove/collapsed", [=](benchmark::State& state) { TakeOut(state, data, false, false); });
    Register("remove/expanded", [=](benchmark::State& state) { TakeOut(state, data, true, false); });
    Register("remove/file", [=](benchmark::State& state) { TakeOut(state, data, true, true); });
}
