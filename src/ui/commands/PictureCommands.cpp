#include "ui/commands/PictureCommands.h"

#include "framework/shared/Application.h"
#include "framework/shared/UserCommand.h"
#include "numbers/Block.h"
#include "numbers/PictureHead.h"
#include "platform/IDesktop.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/PictureWindow.h"
#include "views/AnswerAtCaret.h"

#include <optional>
#include <utility>

namespace portico {
namespace {

/// Shows the picture that an answer is; otherwise tells why not, in one sentence.
std::optional<String> ShowPictureOf(StringView answer, IForm* owner) {
  auto block = numbers::ReadBlock(answer);
  if (const auto* fault = std::get_if<numbers::Fault>(&block)) return fault->Text;
  auto& bytes = std::get<std::string>(block);
  const auto head = numbers::ReadPictureHead(bytes);
  if (const auto* fault = std::get_if<numbers::Fault>(&head)) return fault->Text;
  const auto& [format, width, height] = std::get<numbers::PictureHead>(head);
  PictureFile picture{.Bytes = std::move(bytes),
                      .Format = std::string(numbers::SuffixOf(format)),
                      .Width = static_cast<std::int32_t>(width),
                      .Height = static_cast<std::int32_t>(height)};
  if (New<PictureWindow>()->Show(std::move(picture), owner)) return {};
  return u"The picture is broken: it cannot be read.";
}

class ShowPicture final : public UserCommand {
public:
  StringView ClassName() const override { return u"ShowPicture"; }
  void Initialize(const Ref<AnswerAtCaret>& answers, const Ref<IForm>& window) {
    m_answers = answers;
    m_window = window;
    SetInitialized();
  }

private:
  void Act() override {
    const auto answer = m_answers->Find();
    if (!answer) return;
    if (const auto fault = ShowPictureOf(*answer, m_window.Get())) Wired(gMessageBox).Show(*fault, ApplicationTitle);
  }

  Ref<AnswerAtCaret> m_answers;
  Ref<IForm> m_window;
};

} // namespace

const CreatorRow CtorShowPicture = {
    .Name = u"CtorShowPicture",
    .Specification = Class::ShowPicture,
    .ParamCount = Class::ShowPicture.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<ShowPicture>();
      command->Initialize(Parameters[0].ToObject<AnswerAtCaret>(), Parameters[1].ToObject<IForm>());
      return command;
    },
};

} // namespace portico
