#include "core/catalogue_loader.h"

#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "config/settings.h"
#include "launch/emulator_folder.h"
#include "launch/process_runner.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/screen.h"

#include <cstdio>
#include <string>

namespace {

// Both lie in the current directory, whatever folder the outside programs run in.
constexpr char listFile[] = "listinfo.dat";
constexpr char xmlFile[] = "listinfo.xml";

constexpr DWORD failureMessageMilliseconds = 7500;

bool askedToEnd() {
    return GetSystemMetrics(SM_SHUTTINGDOWN) != 0;
}

// Whether the two runs went well shows in the list alone; a failure to start has been told by then.
void regenerateList() {
    const std::string folder = emulatorFolder();

    showMessage("Regenerating game information (1/2)...");
    std::string listCommand = std::string(settings.mameExe) + " -listxml";
    runToFile(listCommand.data(), folder.c_str(), xmlFile);
    hideMessage();
    if (askedToEnd()) {
        return;
    }

    showMessage("Regenerating game information (2/2)...");
    std::string convertCommand = "xml2info.exe";
    runFilter(convertCommand.data(), folder.c_str(), xmlFile, listFile);
    hideMessage();
    if (askedToEnd()) {
        std::remove(listFile); // it may be empty, and would be trusted for ever
    }
}

FILE* openList() {
    FILE* list = openTextFile(listFile);
    if (list == nullptr) {
        regenerateList();
        list = openTextFile(listFile);
    }
    return list;
}

} // namespace

std::int32_t loadGameList() {
    freeGameList();
    FILE* list = openList();
    if (list == nullptr) {
        showMessage("No game information found.  Could not generate.");
        Sleep(failureMessageMilliseconds);
        hideMessage();
        return 0;
    }
    readGameList(list);
    std::fclose(list);
    return loadGameInfo(settings.mameInfoPath);
}
