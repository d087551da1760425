#include "platform/console/string_rich_text_box.h"

#include "support/rich_text_box_contract.h"

INSTANTIATE_TEST_SUITE_P(Console, RichTextBoxContract,
                         testing::Values([] { return std::make_unique<StringRichTextBox>(); }));
