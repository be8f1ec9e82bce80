// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"
#include "printer/commands/printer_state.h"
#include "printer/model/card_deck.h"

#include <QWidget>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <optional>
#include <utility>

class QComboBox;
class QFormLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QRadioButton;

namespace vantrel::printer {

class CardSlotView;
class PrinterModel;
class PrinterServer;
class TrackBox;

// A page with the card in the slot, a hand to put it in and pull it out, a deck of others, and what
// its tracks hold, to change.
class CardPage : public QWidget {
  Q_OBJECT

 public:
  // All must outlive the page; `server` serves `model`.
  CardPage(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
           QWidget* parent = nullptr);

  // Shows the card as it is now. Whoever owns the page calls it when the server tells of a change.
  void Refresh();

  // All cards, the printer's as it is now.
  DeckContents Deck() const;
  // Puts another deck in place of this one, which is lost, and its card in the hand. False, and
  // nothing happens, while the card is not outside.
  bool SetDeck(DeckContents deck);
  // Whether a card was made, removed or changed by hand, or a track's text typed, since the deck
  // was saved or set; and that it has been saved.
  bool IsUnsaved() const;
  void TellSaved() { unsaved_ = false; }

 private:
  // What was typed into each track's box and not recorded.
  using Edits = std::array<std::optional<QString>, kTracks>;

  QHBoxLayout* MakeHand();
  QHBoxLayout* MakeDeck();
  // Lists the cards of the deck.
  void FillDeck();
  QHBoxLayout* MakeKinds();
  QFormLayout* MakeTracks();
  QPushButton* MakeButton(const char* name, const QString& caption, void (CardPage::*click)());
  bool IsOutside() const;
  // Keeps what was typed for the printer's card and not recorded, before another takes its place.
  void PutEditsAside();
  // Shows the card with what was typed for it before.
  void BringEdits();
  void ShowEdits();
  // Enables and disables widgets of the page, the hand's two buttons first, so that no focus falls
  // into a track.
  void Enable(std::initializer_list<std::pair<QWidget*, bool>> widgets);
  void CmdInsertCard_Click();
  void CmdPullOutCard_Click();
  void CmdNewCard_Click();
  void CmdRenameCard_Click();
  void CmdRemoveCard_Click();
  void CmbDeck_Click(int index);
  void OptCard_Click(CardKind kind);

  PrinterModel& model_;
  PrinterServer& server_;
  dialogs::Helpers helpers_;
  CardDeck deck_;
  bool unsaved_ = false;
  std::map<std::size_t, Edits> edits_;  // by the card's place in the deck
  CardSlotView* slot_ = nullptr;
  QPushButton* CmdInsertCard = nullptr;
  QPushButton* CmdPullOutCard = nullptr;
  QPushButton* CmdNewCard = nullptr;
  QPushButton* CmdRenameCard = nullptr;
  QPushButton* CmdRemoveCard = nullptr;
  QComboBox* CmbDeck = nullptr;
  std::array<QRadioButton*, 2> OptCard{};
  std::array<TrackBox*, kTracks> TxtTrack{};
  QLabel* LblTracks = nullptr;
};

}  // namespace vantrel::printer
