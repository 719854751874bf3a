// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/folder_walker.h"

#include "setup/pages/page_window.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

fs::path firstFolder(const std::string& start) {
    std::error_code error;
    fs::path folder(start);
    while (!folder.empty() && folder.has_relative_path() && !fs::is_directory(folder, error)) {
        folder = folder.parent_path();
    }
    const char* home = std::getenv("HOME");
    return folder.is_absolute() && !start.empty() ? folder : fs::path(home && *home == '/' ? home : "/");
}

class Walker {
public:
    explicit Walker(const WalkerRequest& request) : request_(request), folder_(firstFolder(request.start)) {
        read();
    }

    PageContent content() {
        PageContent content;
        content.title = request_.title;
        content.help = folder_.string();
        content.keys = "Arrows: move    Enter: open, choose    Esc: back without a change";
        if (!request_.wantsFile) {
            content.lines.push_back(choiceLine("Use this folder", folder_.string()));
        }
        if (request_.allowsNone) {
            content.lines.push_back(choiceLine("None", ""));
        }
        if (folder_.has_relative_path()) {
            content.lines.push_back(folderLine("..", folder_.parent_path()));
        }
        for (const std::string& name : folders_) {
            content.lines.push_back(folderLine(name + "/", folder_ / name));
        }
        for (const std::string& name : files_) {
            content.lines.push_back(choiceLine(name, (folder_ / name).string()));
        }
        return content;
    }

    std::size_t selected = 0;
    const std::string& path() const { return path_; }

private:
    void read() {
        folders_.clear();
        files_.clear();
        std::error_code error;
        for (fs::directory_iterator entry(folder_, error), end; !error && entry != end;
             entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            std::error_code ignored;
            if (name.starts_with(".") && name != ".mame") {
                continue;
            }
            if (entry->is_directory(ignored)) {
                folders_.push_back(name);
            } else if (request_.wantsFile && entry->is_regular_file(ignored) &&
                       (!request_.isCandidate || request_.isCandidate(entry->path().string()))) {
                files_.push_back(name);
            }
        }
        std::ranges::sort(folders_);
        std::ranges::sort(files_);
    }

    PageLine folderLine(const std::string& label, const fs::path& target) {
        return {label,
                {},
                "",
                [this, target] {
                    folder_ = target;
                    selected = 0;
                    read();
                    return PageAction::stay;
                },
                nullptr,
                nullptr};
    }

    PageLine choiceLine(const std::string& label, const std::string& chosen) {
        return {label,
                {},
                "",
                [this, chosen] {
                    path_ = chosen;
                    return PageAction::forward;
                },
                nullptr,
                nullptr};
    }

    const WalkerRequest& request_;
    fs::path folder_;
    std::string path_;
    std::vector<std::string> folders_;
    std::vector<std::string> files_;
};

} // namespace

WalkerResult walkFolders(const WalkerRequest& request, std::string& path) {
    Walker walker(request);
    const PageAction action = runPage([&walker] { return walker.content(); }, walker.selected);
    if (action == PageAction::forward) {
        path = walker.path();
        return WalkerResult::chosen;
    }
    return action == PageAction::leave ? WalkerResult::leave : WalkerResult::unchanged;
}
