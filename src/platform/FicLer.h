// FicLer: reading a whole file into memory, by the one rule that every file the
// system reads follows - option files, pictures and icons, rich-text files, answers,
// scripts, and the files the script host reads for a script.
//
// Only a regular file is read; a link to one is followed. The open does not wait
// for a pipe's writer, and a folder, device, pipe or socket is refused before a
// byte is read, so /dev/zero or a pipe nobody writes to ends at once. A file larger
// than the caller's limit is refused too, and so is one that grows past it while
// it is read. A file held by a writer of the file layer (FicGra) is refused as
// well, as the option reader has always refused it.
//
// Refusals that the caller passes over (a picture, a rich-text file) are told once
// through LimTrc, with the file and the reason; so are the texts that the system
// cuts at their limits.
#pragma once
#include <functional>
#include <string>
#include "FicGlb.h"

namespace zw {

// The largest rich-text file a box loads: a text of that size takes seconds to lay
// out, and memory grows with it.
constexpr long long kRtfLerMax = 4LL << 20;

// Reads the file of a Linux path whole into b. 0, or the file layer's error number:
// 53 or 76 missing, 70 no permission or held by a writer, 75 not a regular file
// (folder, device, pipe, socket), 57 larger than max bytes or an input/output
// error. b is empty after a failure. With ler false the file is opened and tested
// only, and nothing is read.
int FicLerNat(const std::string& nat, std::string& b, long long max = kFicLerMax, bool ler = true);
// The same for a path text of the file layer: "\" separates too, and a drive
// letter maps to its folder (FicNat).
int FicLer(const Tx& path, std::string& b, long long max = kFicLerMax);
// True when the path names the null device, which reads as an empty file: the
// answers of a run that needs none may be given as /dev/null.
bool FicNulo(const std::string& nat);
// Why a read failed, as the tools and traces say it: "file not found", "not a
// regular file", "larger than 4 MiB", "permission denied"...
std::string FicLerPorque(int err, long long max = kFicLerMax);

// Where the notes of refused files and cut texts go: one line each, such as
// "refused picture C:\w\fundo.bmp (not a regular file)". By default to stderr,
// behind the program's name; zunwiz-run writes them into its trace. An empty
// function puts the default back.
void LimTrcDef(std::function<void(const Tx&)> f);
void LimTrc(const Tx& nota);

}  // namespace zw
