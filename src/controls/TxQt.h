// TxQt: texts across the edge between the core and Qt.
// Both keep 16-bit code units, so the conversion copies and changes nothing.
#pragma once
#include <QString>
#include "Tx.h"

namespace zw {

inline QString QsTx(TxV t) { return QString::fromUtf16(t.data(), qsizetype(t.size())); }
inline Tx TxQs(const QString& s) { return Tx(reinterpret_cast<const char16_t*>(s.utf16()), size_t(s.size())); }

}  // namespace zw
