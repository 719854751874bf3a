// SPDX-License-Identifier: GPL-3.0-or-later
// In this file: the bounds, HistoryParser with its two kinds (index and text), the thread, the functions of
// the header.
#include "extras/history_xml.h"

#include "config/settings.h"
#include "platform/codepage.h"
#include "platform/diagnostics.h"
#include "platform/files.h"

#include <expat.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace {

// Bounds for damaged files; the published one is far below them.
constexpr int deepestElement = 100;
constexpr std::size_t longestToken = 1 << 20; // bytes of a tag or comment
constexpr std::size_t longestText = 1 << 20;  // bytes; the rest of a text is not shown
constexpr std::size_t mostPlaces = 250'000;

constexpr int pieceSize = 64 << 10; // bytes read at a time

enum Level { documentLevel, historyLevel, entryLevel, systemsLevel };

// FNV-1a.
std::uint64_t hashName(std::string_view name) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    }
    return hash;
}

const char* nameAttribute(const XML_Char** attributes) {
    for (; attributes[0]; attributes += 2) {
        if (std::strcmp(attributes[0], "name") == 0) {
            return attributes[1];
        }
    }
    return nullptr;
}

// Feeds a file to expat and keeps track of the elements that both readers of the file need.
class HistoryParser {
public:
    explicit HistoryParser(Level firstLevel)
        : parser_(XML_ParserCreate("UTF-8"), XML_ParserFree), depth_(firstLevel),
          inEntry_(firstLevel > historyLevel) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), startElement, endElement);
    }
    HistoryParser(const HistoryParser&) = delete;
    HistoryParser& operator=(const HistoryParser&) = delete;
    virtual ~HistoryParser() = default;

    // Reads until the end of the file, a fault, a call of finish() or a request to stop.
    void read(FILE* file, const std::stop_token& stop) {
        std::size_t fed = 0;
        bool ended = false;
        while (!ended && !finished_ && problem_.empty() && !stop.stop_requested()) {
            void* buffer = XML_GetBuffer(parser_.get(), pieceSize);
            if (!buffer) {
                problem_ = "out of memory";
                return;
            }
            const std::size_t length = std::fread(buffer, 1, pieceSize, file);
            ended = length == 0;
            fed += length;
            if (XML_ParseBuffer(parser_.get(), static_cast<int>(length), ended) != XML_STATUS_OK) {
                if (!finished_ && problem_.empty()) {
                    problem_ = XML_ErrorString(XML_GetErrorCode(parser_.get()));
                }
            } else if (fed - static_cast<std::size_t>(offset()) > longestToken && !ended) {
                problem_ = "a tag or comment does not end";
            }
        }
    }

    // Empty without a fault.
    std::string problem() const {
        return problem_.empty()
                   ? problem_
                   : "line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ": " + problem_;
    }

protected:
    virtual void startEntry() {}
    virtual void startSystem(const char* name) = 0;
    virtual void startText() {}
    virtual void endText() {}
    virtual void endEntry() {}

    std::int64_t offset() const { return XML_GetCurrentByteIndex(parser_.get()); }
    XML_Parser parser() const { return parser_.get(); }

    void finish() {
        finished_ = true;
        XML_StopParser(parser_.get(), XML_FALSE);
    }
    void fail(const char* problem) {
        problem_ = problem;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

private:
    static void XMLCALL startElement(void* self, const XML_Char* name, const XML_Char** attributes) {
        HistoryParser& history = *static_cast<HistoryParser*>(self);
        switch (history.depth_++) {
        case historyLevel:
            history.inEntry_ = std::strcmp(name, "entry") == 0;
            if (history.inEntry_) {
                history.startEntry();
            }
            break;
        case entryLevel:
            history.inSystems_ = history.inEntry_ && std::strcmp(name, "systems") == 0;
            history.inText_ = history.inEntry_ && std::strcmp(name, "text") == 0;
            if (history.inText_) {
                history.startText();
            }
            break;
        case systemsLevel:
            if (history.inSystems_ && std::strcmp(name, "system") == 0) {
                if (const char* system = nameAttribute(attributes)) {
                    history.startSystem(system);
                }
            }
            break;
        case deepestElement:
            history.fail("too many elements inside each other");
            break;
        default:
            break;
        }
    }

    static void XMLCALL endElement(void* self, const XML_Char*) {
        HistoryParser& history = *static_cast<HistoryParser*>(self);
        --history.depth_;
        if (history.depth_ == entryLevel && history.inText_) {
            history.inText_ = false;
            history.endText();
        } else if (history.depth_ == historyLevel) {
            history.endEntry();
        }
    }

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
    int depth_;
    bool inEntry_;
    bool inSystems_ = false;
    bool inText_ = false;
    bool finished_ = false;
    std::string problem_;
};

class IndexParser : public HistoryParser {
public:
    explicit IndexParser(std::vector<HistoryPlace>& index) : HistoryParser(documentLevel), index_(index) {}

private:
    void startEntry() override { entryOffset_ = offset(); }
    void startSystem(const char* name) override {
        if (index_.size() == mostPlaces) {
            fail("too many systems");
            return;
        }
        index_.push_back({hashName(name), entryOffset_});
    }

    std::vector<HistoryPlace>& index_;
    std::int64_t entryOffset_ = 0;
};

// Starts with the start tag of an entry, as if the file began before it.
class TextParser : public HistoryParser {
public:
    explicit TextParser(std::string_view system) : HistoryParser(historyLevel), system_(system) {}

    // What was read, up to a fault; empty when the entry does not name the system.
    std::string text() const { return named_ ? text_ : std::string(); }

private:
    void startSystem(const char* name) override { named_ = named_ || name == system_; }
    void startText() override { XML_SetCharacterDataHandler(parser(), appendText); }
    void endText() override { XML_SetCharacterDataHandler(parser(), nullptr); }
    void endEntry() override { finish(); }

    static void XMLCALL appendText(void* self, const XML_Char* characters, int length) {
        TextParser& reader = *static_cast<TextParser*>(static_cast<HistoryParser*>(self));
        const std::size_t room = longestText - reader.text_.size();
        reader.text_.append(characters, std::min(static_cast<std::size_t>(length), room));
        if (reader.text_.size() == longestText) {
            reader.finish();
        }
    }

    std::string_view system_;
    bool named_ = false;
    std::string text_;
};

std::vector<std::string> splitLines(std::string_view text) {
    constexpr std::string_view blanks = " \t\n";
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    // The indentation of the first line is part of the text.
    text.remove_prefix(text.substr(0, first).find_last_of('\n') + 1);
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

struct CloseFile {
    void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

// The file of the setting. The thread writes `index` and then, once, `ready`.
struct History {
    std::string path;
    std::mutex mutex;
    std::condition_variable changed;
    bool ready = false;
    std::vector<HistoryPlace> index;
    std::jthread thread; // the last member: it ends before the others are destroyed

    void readIndex(const std::stop_token& stop) {
        std::string problem = "cannot be opened";
        if (const File file{openBinaryFile(path.c_str())}) {
            problem = indexHistory(file.get(), stop, index);
        }
        if (!problem.empty()) {
            writeDiagnostic(standardError, "History.xml: " + path + ": " + problem);
        }
        const std::lock_guard lock(mutex);
        ready = true;
        changed.notify_all();
    }

    bool waitUntilReady() {
        constexpr std::chrono::milliseconds longestWait(500);
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, longestWait, [this] { return ready; });
    }
};

std::unique_ptr<History> history;

} // namespace

std::string indexHistory(FILE* file, const std::stop_token& stop, std::vector<HistoryPlace>& index) {
    IndexParser parser(index);
    parser.read(file, stop);
    std::ranges::sort(index, {},
                      [](const HistoryPlace& place) { return std::pair(place.nameHash, place.entryOffset); });
    index.shrink_to_fit();
    return parser.problem();
}

std::vector<std::string> readHistory(FILE* file, const std::vector<HistoryPlace>& index,
                                     std::string_view systemName) {
    const std::uint64_t hash = hashName(systemName);
    const auto place = std::ranges::lower_bound(index, hash, {}, &HistoryPlace::nameHash);
    if (place == index.end() || place->nameHash != hash) {
        return {};
    }
    std::fseek(file, static_cast<long>(place->entryOffset), SEEK_SET);
    TextParser parser(systemName);
    parser.read(file, {});
    return splitLines(utf8ToCodePage(parser.text()));
}

void startHistory() {
    if (!settings.historyXml) {
        return;
    }
    history = std::make_unique<History>();
    history->path = settings.historyXml;
    history->thread =
        std::jthread([own = history.get()](const std::stop_token& stop) { own->readIndex(stop); });
}

void stopHistory() {
    history.reset();
}

std::vector<std::string> historyText(const char* systemName) {
    const File file(history && history->waitUntilReady() ? openBinaryFile(history->path.c_str()) : nullptr);
    return file ? readHistory(file.get(), history->index, systemName) : std::vector<std::string>();
}
