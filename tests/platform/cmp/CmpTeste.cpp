// A component for the registration tests. Built three times: as it is, its entry
// points write a line "I name" or "R name" to the file named by ZW_CMP_MARCA;
// with CMP_TRAVA registering never ends; with CMP_VAZIO it has no entry points.
#include <dlfcn.h>
#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifndef CMP_VAZIO
namespace {
void Marca(const char* acao) {
  Dl_info inf{};
  const char* fic = getenv("ZW_CMP_MARCA");
  if (!fic || !dladdr(reinterpret_cast<void*>(&Marca), &inf) || !inf.dli_fname) return;
  const char* nome = strrchr(inf.dli_fname, '/');
  if (FILE* f = fopen(fic, "a")) {
    fprintf(f, "%s %s\n", acao, nome ? nome + 1 : inf.dli_fname);
    fclose(f);
  }
}
}  // namespace

extern "C" long DllRegisterServer() {
#ifdef CMP_TRAVA
  for (;;) pause();
#endif
  Marca("I");
  return 0;
}

extern "C" long DllUnregisterServer() {
  Marca("R");
  return 1;  // a failure the caller does not read
}
#else
extern "C" long OutraCoisa() { return 0; }
#endif
