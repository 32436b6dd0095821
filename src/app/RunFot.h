// RunFot: zunwiz-run's shots, a PNG picture of each page entered and each box
// shown, numbered in the order taken.
#pragma once
#include "Tx.h"

class QPixmap;

namespace zw {

class RunFot {
 public:
  // The shots' folder, made when missing (the run ends when it cannot be); "" takes none.
  void Def(const Tx& dir);
  // Whether shots are taken: without them the window need not be painted.
  bool Liga() const { return !mDir.empty(); }
  // Writes a shot "NN-nome.png"; separators in the name become "_", so that a page
  // identifier cannot send it out of the folder.
  void Gra(const QPixmap& px, const Tx& nome);

 private:
  Tx mDir;
  int mNum = 0;  // shots taken; it goes on across runs of one process
};

}  // namespace zw
