// zunwiz-run's shots of pages and boxes.
#include "RunFot.h"
#include <QDir>
#include <QPixmap>
#include "RunTrc.h"
#include "TxQt.h"
#include "ZunWizMain.h"

namespace zw {

void RunFot::Def(const Tx& dir) {
  mDir = dir;
  if (Liga() && !QDir().mkpath(QsTx(mDir))) RunSai(kSaiTrc, "cannot make the shots folder " + TxUtf8(mDir));
}

void RunFot::Gra(const QPixmap& px, const Tx& nome) {
  if (!Liga()) return;
  mNum++;
  QString n = QsTx(nome);
  n.replace(u'/', u'_').replace(u'\\', u'_');
  QString f = QStringLiteral("%1/%2-%3.png").arg(QsTx(mDir)).arg(mNum, 2, 10, QLatin1Char('0')).arg(n);
  if (!px.save(f, "PNG")) RunSai(kSaiTrc, "cannot write the shot " + f.toStdString());
}

}  // namespace zw
