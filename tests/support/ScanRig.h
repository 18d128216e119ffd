#pragma once

#include "cache/CacheScan.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// Everything around a scan, written down instead of shown.
class ScanRig : public ScanScreen,
                public StatusLine,
                public MessageBoxes,
                public MessagePump,
                public ScreenPointer {
public:
    explicit ScanRig(std::shared_ptr<zentrel::Transport> transport)
        : server(transport),
          cache(transport),
          contents(FormatLocale{}),
          scan(server, cache, ScanHost{*this, *this, *this, *this, *this}, stop, contents)
    {
        isConnected = server.Connect("") && cache.Connect("");
    }

    void Rescan(std::vector<std::int32_t> sites) { scan.Rescan(sites, isConnected); }

    // The tree as text: a line for each node, indented by depth.
    std::string Print() const
    {
        std::string out;
        if (contents.tree.Root() != kNoNode) Print(contents.tree.Root(), 0, out);
        return out;
    }

    void HideTree() override { isHidden = true; }
    void ShowTree() override { isHidden = false; }
    void ForgetContents() override { isShown = false; }
    void ShowContents() override { isShown = true; }
    std::string Caption() const override { return "caption"; }
    void SetStatus(std::string_view text) override { status = text; }
    void SetConnStatus(std::string_view) override {}
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        boxes.push_back(title + ": " + text + (style == BoxStyle::Exclamation ? " (!)" : ""));
        return BoxAnswer::Ok;
    }
    void Run() override
    {
        ++runs;
        if (onRun) onRun();
    }
    int Get() const override { return pointer; }
    void Set(int value) override { pointer = value; }

    zentrel::ServerAdmin server;
    zentrel::CacheAdmin cache;
    StopFlag stop;
    CacheContents contents;
    CacheScan scan;
    bool isConnected = false;
    bool isHidden = false;
    bool isShown = false;
    std::string status;
    std::vector<std::string> boxes;
    int pointer = 0;
    int runs = 0;
    std::function<void()> onRun;

private:
    void Print(NodeId node, std::size_t depth, std::string& out) const
    {
        const auto& tree = contents.tree;
        out.append(depth * 2, ' ').append(ImageKey(tree.Kind(node))).append(" ").append(tree.Text(node)) +=
            '\n';
        for (std::size_t row = 0; row < tree.ChildCount(node); ++row) {
            const auto child = tree.Child(node, row);
            EXPECT_EQ(tree.Row(child), row);
            EXPECT_EQ(tree.Parent(child), node);
            Print(child, depth + 1, out);
        }
    }
};
