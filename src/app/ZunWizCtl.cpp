// The factories of the wizard window's control arrays.
#include "ZunWizCtl.h"
#include "CtlFab.h"

namespace zw {

namespace {
const CtlFab kProprio[4] = {[](QWidget* p) -> QWidget* { return LabCri(p); },
                            [](QWidget* p) -> QWidget* { return CkbCri(p); },
                            [](QWidget* p) -> QWidget* { return RtfCri(p); },
                            [](QWidget* p) -> QWidget* { return OpcCri(p); }};
CtlFab gFab[4] = {kProprio[0], kProprio[1], kProprio[2], kProprio[3]};
}  // namespace

CtlFab CtlFabCon(CtlArr arr) { return gFab[int(arr)]; }
void CtlFabDef(CtlArr arr, CtlFab fab) { gFab[int(arr)] = fab ? fab : kProprio[int(arr)]; }

}  // namespace zw
