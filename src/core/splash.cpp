#include "core/splash.h"

#include "state/product.h"

frmSplash::frmSplash(WindowSystem& windows) : Form(windows) {
  Caption = u"WordFlurn";
  Image1.Icon = u"application";
  Label1.Caption = u"WordFlurn";
  Label1.Heading = true;
  Label2.Caption = u"Version " + String(kVersion);
}

Layout frmSplash::Content() { return Row({Image1, Column({Label1, Label2})}); }
