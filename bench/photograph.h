// SPDX-License-Identifier: GPL-3.0-or-later
// Generates pictures similar to real art, and decodes them with libpng alone as the reference for the
// benchmarks that draw pictures.
#pragma once

#include <string>

// Writes a PNG picture with smooth colour gradients and fine grain, like a scan of printed paper.
void writePhotograph(const std::string& path, unsigned width, unsigned height, unsigned seed);

// Decodes a PNG picture with libpng alone and discards it.
void decodeBare(const std::string& path);
