// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/catalogue_loader.h"

#include "catalogue/game_catalogue.h"
#include "catalogue/game_info.h"
#include "catalogue/rom_scan.h"
#include "config/settings.h"
#include "extras/refresh_list.h"
#include "launch/emulator_folder.h"
#include "launch/list_generation.h"
#include "launch/process_runner.h"
#include "overlays/message_window.h"
#include "platform/clock.h"
#include "platform/diagnostics.h"
#include "platform/screen.h"
#include "platform/text_file.h"

#include <cstdio>
#include <future>
#include <optional>
#include <string>

namespace {

constexpr DWORD failureMessageTime = 7500; // milliseconds

// Valid while a thread reads the list; the catalogue belongs to that thread until then.
std::future<bool> listReading;

bool shutdownRequested() {
    return GetSystemMetrics(SM_SHUTTINGDOWN) != 0;
}

// Each is 1 when its program was started, whatever its exit code; 1 also for a step that was skipped.
struct RegenerationResult {
    int listingStarted = 1;
    int conversionStarted = 1;
};

RegenerationResult regenerateList() {
    const std::string folder = emulatorFolder();
    RegenerationResult result;

    showMessage(listingMessage);
    std::string listCommand = settings.mameExe + std::string(listingOption);
    result.listingStarted = runToFile(listCommand.data(), folder.c_str(), listXmlFile);
    hideMessage();
    if (shutdownRequested()) {
        return result;
    }

    showMessage(conversionMessage);
    std::string convertCommand = listConverter;
    result.conversionStarted = runFilter(convertCommand.data(), folder.c_str(), listXmlFile, listFile);
    hideMessage();
    return result;
}

// Logs why the list is empty. The empty file counts as an existing list at every later start.
void logEmptyListReason(const RegenerationResult& result) {
    const char* reason = "What the emulator wrote is no whole game list.";
    if (!result.listingStarted) {
        reason = "The emulator could not be run for its game list.";
    } else if (!result.conversionStarted) {
        reason = "The converter xml2info could not be run on the emulator's game list.";
    }
    writeDiagnostic(standardError, std::string(reason) +
                                       " Delete listinfo.dat when the cause is removed, so that the "
                                       "next start makes it anew.");
}

// Returns false when there is no list and none could be made.
bool readOrMakeList() {
    freeGameList();
    std::optional<RegenerationResult> regeneration;
    FILE* list = openTextFile(listFile);
    if (!list && settings.refreshList == 0) {
        regeneration = regenerateList();
        list = openTextFile(listFile);
    }
    if (!list) {
        return false;
    }
    readGameList(list);
    std::fclose(list);
    if (regeneration && gameCount == 0) {
        logEmptyListReason(*regeneration);
    }
    return true;
}

} // namespace

void startReadingGameList() {
    // Without a thread to be had, it is read when loadGameList waits for it.
    listReading = std::async(std::launch::async | std::launch::deferred, [] {
        FILE* list = openTextFile(listFile);
        if (!list) {
            return false;
        }
        readGameList(list);
        std::fclose(list);
        return true;
    });
}

std::int32_t loadGameList() {
    bool isRead = false;
    if (listReading.valid()) {
        prepareRomScan(); // while the thread reads the list
        isRead = listReading.get();
    }
    if (settings.refreshList != 0 && refreshGameList()) {
        isRead = false;
    }
    if (!isRead) {
        if (!readOrMakeList()) {
            showMessage("No game information found.  Could not generate.");
            Sleep(failureMessageTime);
            hideMessage();
            return 0;
        }
        discardRomScan(); // files may have come meanwhile
    }
    return loadGameInfo(settings.mameInfoPath);
}
