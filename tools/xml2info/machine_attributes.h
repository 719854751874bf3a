// What the attributes of the list's elements mean, in the words and
// numbers of the list file, for all versions of the XML. Called by
// the list parser for the few elements that matter; holds no state.
#pragma once

#include "xml2info/list_block.h"

// An attribute list as expat gives it: name, value, name, value, null.
using Attributes = const char**;

void readMachineAttributes(Machine& machine, Attributes attributes);

// <display> of the newer versions, <video> of the oldest.
void readDisplayAttributes(Machine& machine, Attributes attributes);
void readVideoAttributes(Machine& machine, Attributes attributes);

void readInputAttributes(Machine& machine, Attributes attributes);

// firstPlayersControl says whether machine.control belongs to player 1 already, and is updated.
void readControlAttributes(Machine& machine, Attributes attributes, bool& firstPlayersControl);
