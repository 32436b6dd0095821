// The wizard engine. For now it keeps the window and builds nothing: a run with
// an option file ends normally after one attempt.
#include "SupWiz.h"

namespace zw {

SupWiz::SupWiz() { FxIni(); }
SupWiz::~SupWiz() { FxFim(); }

void SupWiz::FxIni() {}

// Releases the window.
void SupWiz::FxFim() { mFrm = Var(); }

// Keeps the window that the engine builds on.
void SupWiz::RegFrm(const Var& frm) { mFrm = frm; }

void SupWiz::WizIni(const Tx&) {}
void SupWiz::WizExe() {}

void SupWiz::TraAnt() {}
void SupWiz::TraSeg() {}
void SupWiz::TraCnf() {}
void SupWiz::TraCan() {}
void SupWiz::VbsExe(const Tx&) {}

}  // namespace zw
