// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the seeds that a program makes better, pictures, sounds and long lines, to folders with the names of
// their targets: `make_seeds FOLDER`. The other seeds are files in fuzz/seeds.
#include "support/png_files.h"
#include "support/wave_files.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

void write(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

// The bytes after a picture choose the rotation and that it is a file; see png_fuzz.cpp.
void writePictures(const std::filesystem::path& folder) {
    PngForm form;
    form.width = 19;
    form.height = 7;
    for (const int colorType : {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_PALETTE,
                                PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB_ALPHA}) {
        form.colorType = colorType;
        form.interlaced = colorType == PNG_COLOR_TYPE_RGB;
        form.depth = colorType == PNG_COLOR_TYPE_PALETTE ? 2 : 8;
        form.resolutionUnit = colorType == PNG_COLOR_TYPE_GRAY ? PNG_RESOLUTION_METER : -1;
        const std::string bytes = pngBytes(form) + std::string(1, '\0') + static_cast<char>(colorType);
        write(folder / ("color_type_" + std::to_string(colorType)), bytes);
    }
}

// The bytes after a sound say that the file ends there, or the form of the device; see wave_fuzz.cpp and
// sound_fuzz.cpp.
void writeSounds(const std::filesystem::path& headers, const std::filesystem::path& sounds) {
    constexpr Coding codings[] = {{"pcm", 1, 2, 8000, 16},       {"ms_adpcm", 2, 1, 8000, 4},
                                  {"float", 3, 1, 8000, 32},     {"a_law", 6, 1, 8000, 8},
                                  {"ima_adpcm", 17, 2, 8000, 4}, {"extensible", 1, 2, 8000, 24, true}};
    for (const Coding& coding : codings) {
        const std::string end(2, '\0');
        write(headers / coding.name, wave(coding).substr(0, 300) + end);
        write(sounds / coding.name, wave(coding) + end);
    }
}

// Lines around the size of the readers' buffer, 1,024 bytes.
void writeLongLines(const std::filesystem::path& folder) {
    for (const std::size_t length : {1000U, 1023U, 2100U}) {
        const std::string name = "line_of_" + std::to_string(length);
        const std::string text(length, 'w');
        write(folder / "game_list" / name,
              "game (\nname " + text + "\ndescription \"" + text + "\"\nvideo ( screen " + text + " )\n)\n");
        write(folder / "game_info" / name, "$info=a\n$bio\n\n" + text + "\n\n$end\n");
        write(folder / "settings" / name,
              "[Settings]\nFontface=" + text + "\n[System]\nSelectedGame=" + text + "\n");
        write(folder / "xml_list" / name, "<mame><machine name=\"" + text + "\" romof=\"b\"><description>" +
                                              text + "</description></machine></mame>");
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    writePictures(folder / "png");
    writeSounds(folder / "wave", folder / "sound");
    writeLongLines(folder);
    return 0;
}
