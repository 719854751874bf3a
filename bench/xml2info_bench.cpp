// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the list converter against an expat parse of the same list with empty handlers: ratio of processor
// times, elapsed time and peak memory. They run alternately, each in a separate process. Usage:
// `xml2info_bench [LIST]`, where LIST is the XML of an emulator. Without LIST, generates a list of 60 MB.
#include "xml2info/list_converter.h"
#include "xml2info/list_output.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::size_t generatedSize = 60'000'000;

int listDescriptor = -1;

// Has the proportions of a current list: mostly roms and switches, and a twentieth of it is converted.
std::string generatedMachine(std::mt19937& random, int index) {
    const std::string number = std::to_string(index);
    std::string text = "\t<machine name=\"set" + number + "\" sourcefile=\"maker/board.cpp\"" +
                       (index % 3 == 0 ? std::string() : " cloneof=\"set" + number + "\" romof=\"set0\"") +
                       ">\n\t\t<description>Made-up Game " + number +
                       " &amp; Friends</description>\n\t\t<year>1987</year>\n"
                       "\t\t<manufacturer>Caf\xC3\xA9 Works</manufacturer>\n";
    for (unsigned roms = random() % 20; roms > 0; --roms) {
        text += "\t\t<rom name=\"part" + std::to_string(random() % 1000) +
                ".bin\" size=\"8192\" crc=\"8e68533e\" sha1=\"a257c556d31691068ed5c991f1fb2b51da4826db\" "
                "region=\"maincpu\" offset=\"" +
                std::to_string(roms * 8192) + "\"/>\n";
    }
    text += "\t\t<chip type=\"cpu\" tag=\"maincpu\" name=\"Zilog Z80\" clock=\"3072000\"/>\n"
            "\t\t<display tag=\"screen\" type=\"raster\" rotate=\"90\" width=\"288\" height=\"224\" "
            "refresh=\"60.606061\" />\n\t\t<sound channels=\"1\"/>\n\t\t<input players=\"2\" coins=\"2\">\n"
            "\t\t\t<control type=\"joy\" player=\"1\" buttons=\"2\" ways=\"4\"/>\n\t\t</input>\n";
    for (unsigned switches = random() % 12; switches > 0; --switches) {
        text += "\t\t<dipswitch name=\"Lives\" tag=\"DSW" + std::to_string(switches) + "\" mask=\"12\">\n";
        for (int value = 0; value < 4; ++value) {
            text += "\t\t\t<dipvalue name=\"" + std::to_string(value) + "\" value=\"" +
                    std::to_string(value * 4) + "\"" + (value == 0 ? " default=\"yes\"" : "") + "/>\n";
        }
        text += "\t\t</dipswitch>\n";
    }
    return text + "\t\t<driver status=\"good\" emulation=\"good\" savestate=\"supported\"/>\n\t</machine>\n";
}

int makeList() {
    FILE* file = std::tmpfile();
    if (!file) {
        std::perror("temporary file");
        std::exit(1);
    }
    std::fputs("<?xml version=\"1.0\"?>\n<!DOCTYPE mame [\n<!ELEMENT mame (machine+)>\n"
               "\t<!ATTLIST machine isbios (yes|no) \"no\">\n\t<!ATTLIST machine runnable (yes|no) \"yes\">\n"
               "\t<!ATTLIST rom status (baddump|nodump|good) \"good\">\n"
               "\t<!ATTLIST dipvalue default (yes|no) \"no\">\n]>\n\n<mame build=\"1\">\n",
               file);
    std::mt19937 random(1);
    std::size_t size = 0;
    for (int index = 0; size < generatedSize; ++index) {
        const std::string text = generatedMachine(random, index);
        if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) {
            std::abort();
        }
        size += text.size();
    }
    std::fputs("</mame>\n", file);
    std::fflush(file);
    return fileno(file);
}

void XMLCALL ignoreStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL ignoreEnd(void*, const XML_Char*) {}

bool parseWithExpat() {
    constexpr int block = 65536;
    const XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, ignoreStart, ignoreEnd);
    for (;;) {
        const ssize_t count = read(listDescriptor, XML_GetBuffer(parser, block), block);
        if (count < 0 || XML_ParseBuffer(parser, static_cast<int>(count), count == 0) != XML_STATUS_OK) {
            return false;
        }
        if (count == 0) {
            XML_ParserFree(parser);
            return true;
        }
    }
}

bool convert() {
    const int nullDevice = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const Conversion conversion = convertList(listDescriptor);
    return conversion.problem.empty() && writeList(nullDevice, conversion.segments);
}

struct Cost {
    double userSeconds = 0;
    double elapsedSeconds = 0;
    double peakMebibytes = 0;
};

Cost costOf(bool (*work)()) {
    const auto start = std::chrono::steady_clock::now();
    lseek(listDescriptor, 0, SEEK_SET);
    const pid_t child = fork();
    if (child == 0) {
        _exit(work() ? 0 : 1);
    }
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child || status != 0) {
        std::fputs("the list cannot be parsed\n", stderr);
        std::exit(1);
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return {static_cast<double>(usage.ru_utime.tv_sec) + static_cast<double>(usage.ru_utime.tv_usec) / 1e6,
            elapsed.count(), static_cast<double>(usage.ru_maxrss) / 1024};
}

void measureConversion(benchmark::State& state) {
    Cost reference;
    Cost converted;
    for ([[maybe_unused]] auto step : state) {
        reference = costOf(parseWithExpat);
        converted = costOf(convert);
        state.SetIterationTime(converted.elapsedSeconds);
    }
    state.counters["bare_user_s"] = reference.userSeconds;
    state.counters["user_s"] = converted.userSeconds;
    state.counters["user_ratio"] = converted.userSeconds / reference.userSeconds;
    state.counters["peak_MiB"] = converted.peakMebibytes;
}

BENCHMARK(measureConversion)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    listDescriptor = argc > 1 ? open(argv[1], O_RDONLY | O_CLOEXEC) : makeList();
    if (listDescriptor < 0) {
        std::perror(argv[1]);
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
