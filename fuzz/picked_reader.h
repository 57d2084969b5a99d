// The list of all readers (tests/properties/every_reader.h), of which only some are called at a time: all of
// them on every element of a document take too long for a fuzzer.
#pragma once

#include "properties/every_reader.h"

constexpr unsigned readerShares = 16;

// As readDocument, with one share of the functions; with all of them if there is no such share. Those that
// release something are called always.
void readPicked(Transcript& transcript, TiXmlDocument* doc, unsigned share);
