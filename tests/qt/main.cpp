// Widgets need an application object, but no display.

#include <QApplication>
#include <QLoggingCategory>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Scripts without a font are no concern here.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.text.font.db=false"));
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
