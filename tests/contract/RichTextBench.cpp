#include "contract/RichTextBench.h"

#include "memory/RichTextBox.h"

namespace portico::test {

std::vector<RichTextBenchKind> AllRichTextBenches() {
  return {{"Memory", []() -> Ref<IRichTextBox> { return New<memory::RichTextBox>(u"Sans", 10); }}};
}

} // namespace portico::test
