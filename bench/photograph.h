// Art like that of real packs, and its bare decoding, beside
// which the benchmarks set what the program takes. Called by
// the benchmarks that draw pictures.
#pragma once

#include <string>

// Writes a PNG picture with slow waves of colour and fine grain, as a scan of printed paper has.
void writePhotograph(const std::string& path, unsigned width, unsigned height, unsigned seed);

// Decodes a PNG picture with libpng's plain calls and drops it.
void decodeBare(const std::string& path);
