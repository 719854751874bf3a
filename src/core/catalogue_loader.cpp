#include "core/catalogue_loader.h"

#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "config/settings.h"
#include "launch/emulator_folder.h"
#include "launch/process_runner.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/screen.h"

#include <cstdio>
#include <optional>
#include <string>

namespace {

// Both lie in the current directory, whatever folder the outside programs run in.
constexpr char listFile[] = "listinfo.dat";
constexpr char xmlFile[] = "listinfo.xml";

constexpr DWORD failureMessageMilliseconds = 7500;

bool askedToEnd() {
    return GetSystemMetrics(SM_SHUTTINGDOWN) != 0;
}

// Each is 1 when its program was run, however it ended.
struct Regeneration {
    int listing = 1;
    int conversion = 1;
};

Regeneration regenerateList() {
    const std::string folder = emulatorFolder();
    Regeneration result;

    showMessage("Regenerating game information (1/2)...");
    std::string listCommand = std::string(settings.mameExe) + " -listxml";
    result.listing = runToFile(listCommand.data(), folder.c_str(), xmlFile);
    hideMessage();
    if (askedToEnd()) {
        return result;
    }

    showMessage("Regenerating game information (2/2)...");
    std::string convertCommand = "xml2info.exe";
    result.conversion = runFilter(convertCommand.data(), folder.c_str(), xmlFile, listFile);
    hideMessage();
    return result;
}

// For whoever looks into the cabinet: the empty list would be taken for a list at every later start.
void explainEmptyList(const Regeneration& result) {
    const char* reason = "What the emulator wrote is no whole game list.";
    if (!result.listing) {
        reason = "The emulator could not be run for its game list.";
    } else if (!result.conversion) {
        reason = "The converter xml2info could not be run on the emulator's game list.";
    }
    writeDiagnostic(standardError, std::string(reason) +
                                       " Delete listinfo.dat when the cause is removed, so that the "
                                       "next start makes it anew.");
}

} // namespace

std::int32_t loadGameList() {
    freeGameList();
    std::optional<Regeneration> regeneration;
    FILE* list = openTextFile(listFile);
    if (list == nullptr) {
        regeneration = regenerateList();
        list = openTextFile(listFile);
    }
    if (list == nullptr) {
        showMessage("No game information found.  Could not generate.");
        Sleep(failureMessageMilliseconds);
        hideMessage();
        return 0;
    }
    readGameList(list);
    std::fclose(list);
    if (regeneration && gameCount == 0) {
        explainEmptyList(*regeneration);
    }
    return loadGameInfo(settings.mameInfoPath);
}
