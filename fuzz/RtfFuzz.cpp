// Fuzz target of the rich-text reader: the input is a whole file. It is read into
// a document and turned into plain text; the reader must end on any bytes, and what
// it gives must hold together (runs with text, sizes in range). A crash, a sanitizer
// report, a hang or a broken document is a fault.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include "RtfLer.h"

using namespace zw;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  RtfDoc doc;
  bool ok = RtfLer(std::string_view(reinterpret_cast<const char*>(data), size), doc);
  if (!ok && !doc.pars.empty()) std::abort();
  size_t chars = 0;
  for (const RtfPar& p : doc.pars)
    for (const RtfRun& r : p.runs) {
      if (r.tx.empty() || r.car.tam <= 0 || r.car.tam > 2000) std::abort();
      chars += r.tx.size();
    }
  if (chars > size) std::abort();  // every character comes from at least one byte
  Tx t = RtfTx(doc);
  (void)t;
  return 0;
}
