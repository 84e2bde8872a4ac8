#include "views/completion/CommandOffers.h"

#include "framework/shared/IMainWindow.h"
#include "views/recall/CaretLine.h"

#include <utility>

namespace portico {

CommandOffers::CommandOffers(const Ref<IRichTextControl>& box, const Ref<KnownCommands>& known)
    : m_box(box),
      m_known(known),
      m_changed(box->Change().Connect([this] { Follow(); })),
      m_moved(box->CaretMoved().Connect([this] { Follow(); })),
      m_taken(box->OfferTaken().Connect([this](std::int32_t offer) { Take(offer); })) {}

CommandOffers::~CommandOffers() {
  m_box->Change().Disconnect(m_changed);
  m_box->CaretMoved().Disconnect(m_moved);
  m_box->OfferTaken().Disconnect(m_taken);
}

CommandOffers::Found CommandOffers::Find() const {
  if (m_box->SelTextLength() > 0) return {};
  const CaretLine line = CaretLineOf(*m_box);
  completion::Completion completion = completion::Complete(line.Head(), m_known->Tree());
  return {.Start = line.Start + static_cast<std::int32_t>(completion.Begin),
          .Caret = line.Caret,
          .Typed = String(line.Head().substr(completion.Begin)),
          .Candidates = std::move(completion.Candidates)};
}

void CommandOffers::Show(Found found) {
  m_shown = std::move(found);
  std::vector<String> offers;
  for (const completion::Candidate& candidate : m_shown.Candidates) offers.push_back(candidate.Shown);
  m_box->ShowOffers(offers, m_shown.Start);
}

void CommandOffers::Offer() { Show(Find()); }

void CommandOffers::Close() { m_box->CloseOffers(); }

void CommandOffers::Follow() {
  if (m_box->Offers().empty()) return;
  if (gMainForm->Executing()) return Close();
  Found found = Find();
  // A word that stands there whole needs no list, which would take the Return that ends the line.
  const bool isWhole = found.Candidates.size() == 1 && found.Candidates.front().Text == found.Typed;
  if (found.Start != m_shown.Start || isWhole) return Close();
  Show(std::move(found));
}

void CommandOffers::Take(std::int32_t offer) {
  const String& text = m_shown.Candidates[static_cast<std::size_t>(offer)].Text;
  m_box->AsUser([&] {
    m_box->SelStart(m_shown.Start);
    m_box->SelLength(m_shown.Caret - m_shown.Start);
    InsertPlain(*m_box, text);
  });
}

} // namespace portico
