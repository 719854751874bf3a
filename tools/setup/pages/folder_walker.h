// SPDX-License-Identifier: GPL-3.0-or-later
// A page on which the user walks through the folders of the machine and chooses a folder or a file. Called by
// the pages of the emulator and of the folders. Changes nothing on the disk.
#pragma once

#include <functional>
#include <string>

struct WalkerRequest {
    std::string title;
    std::string start; // path of a folder or a file; its nearest existing folder is shown first
    bool wantsFile = false;
    bool allowsNone = true;
    std::function<bool(const std::string& path)> isCandidate; // for files; null: all
};

enum class WalkerResult { chosen, unchanged, leave };

// On `chosen`, `path` is the folder or file; empty for none.
WalkerResult walkFolders(const WalkerRequest& request, std::string& path);
