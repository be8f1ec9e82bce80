#pragma once

#include "printer/commands/printer_state.h"
#include "printer/model/card_deck.h"

#include <QWidget>

#include <array>

class QComboBox;
class QFormLayout;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vantrel::printer {

class CardSlotView;
class PrinterModel;
class PrinterServer;

// A page with the card in the slot, a hand to put it in and pull it out, a deck of others, and what
// its tracks hold, to change.
class CardPage : public QWidget {
  Q_OBJECT

 public:
  // Both must outlive the page; `server` serves `model`.
  CardPage(PrinterModel& model, PrinterServer& server, QWidget* parent = nullptr);

  // Shows the card as it is now. Whoever owns the page calls it when the server tells of a change.
  void Refresh();

 private:
  QHBoxLayout* MakeHand();
  QHBoxLayout* MakeKinds();
  QFormLayout* MakeTracks();
  QPushButton* MakeButton(const char* name, const QString& caption, void (CardPage::*click)());
  void CmdInsertCard_Click();
  void CmdPullOutCard_Click();
  void CmdNewCard_Click();
  void CmbDeck_Click(int index);
  void OptCard_Click(CardKind kind);

  PrinterModel& model_;
  PrinterServer& server_;
  CardDeck deck_;
  CardSlotView* slot_ = nullptr;
  QPushButton* CmdInsertCard = nullptr;
  QPushButton* CmdPullOutCard = nullptr;
  QPushButton* CmdNewCard = nullptr;
  QComboBox* CmbDeck = nullptr;
  std::array<QRadioButton*, 2> OptCard{};
  std::array<QLineEdit*, kTracks> TxtTrack{};
};

}  // namespace vantrel::printer
