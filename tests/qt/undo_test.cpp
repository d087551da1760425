// The undo engine on the edit control of a window, shown, so that it scrolls.

#include "platform/qt/qt_rich_text_box.h"
#include "support/undo_contract.h"

INSTANTIATE_TEST_SUITE_P(Qt, UndoContract, testing::Values([] {
                           auto box = std::make_unique<QtRichTextBox>();
                           box->Widget()->resize(300, 200);
                           box->Widget()->show();
                           return box;
                         }));
