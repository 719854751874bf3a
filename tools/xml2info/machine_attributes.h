// SPDX-License-Identifier: GPL-3.0-or-later
// Converts the attributes of the list's elements to the words and numbers of the list file, for all versions
// of the XML. Called by the XML parser for the elements that are converted. Stateless.
#pragma once

#include "xml2info/list_block.h"

// An attribute list as passed by expat: name, value, name, value, ..., null.
using Attributes = const char**;

void readMachineAttributes(Machine& machine, Attributes attributes);

// <display> is used by newer versions and <video> by the oldest.
void readDisplayAttributes(Machine& machine, Attributes attributes);
void readVideoAttributes(Machine& machine, Attributes attributes);

void readInputAttributes(Machine& machine, Attributes attributes);

// isFirstPlayersControl states whether machine.control already belongs to player 1; updated by the call.
void readControlAttributes(Machine& machine, Attributes attributes, bool& isFirstPlayersControl);
