#include "printer/window/card_page.h"

#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/card_slot_view.h"
#include "printer/window/form_text.h"
#include "printer/window/indicator_sign.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace vantrel::printer {

CardPage::CardPage(PrinterModel& model, PrinterServer& server, QWidget* parent)
    : QWidget(parent), model_(model), server_(server), slot_(new CardSlotView(this)) {
  slot_->setObjectName("CardSlotView");
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(8);
  layout->addWidget(slot_, 1);
  layout->addLayout(MakeHand());
  layout->addLayout(MakeKinds());
  layout->addLayout(MakeTracks());
  Refresh();
}

QHBoxLayout* CardPage::MakeHand() {
  CmdInsertCard = MakeButton("CmdInsertCard", tr("&Insert card"), &CardPage::CmdInsertCard_Click);
  CmdPullOutCard =
      MakeButton("CmdPullOutCard", tr("&Pull out card"), &CardPage::CmdPullOutCard_Click);
  CmdNewCard = MakeButton("CmdNewCard", tr("&New card"), &CardPage::CmdNewCard_Click);
  CmbDeck = new QComboBox(this);
  CmbDeck->setObjectName("CmbDeck");
  CmbDeck->setAccessibleName(tr("Deck of cards"));
  CmbDeck->addItem(ToQt(deck_.Name(0)));
  connect(CmbDeck, &QComboBox::activated, this, &CardPage::CmbDeck_Click);
  const QString outside = tr("While the card is outside.");
  CmdNewCard->setToolTip(tr("Adds a blank card to the deck and takes it. %1").arg(outside));
  CmbDeck->setToolTip(tr("The card to put in. %1").arg(outside));
  auto* hand = new QHBoxLayout;
  for (QPushButton* button : {CmdInsertCard, CmdPullOutCard}) hand->addWidget(button);
  hand->addStretch();
  hand->addWidget(CmbDeck);
  hand->addWidget(CmdNewCard);
  return hand;
}

QHBoxLayout* CardPage::MakeKinds() {
  OptCard = {new QRadioButton(tr("&Ordinary card"), this),
             new QRadioButton(tr("C&leaning card"), this)};
  auto* kinds = new QHBoxLayout;
  for (std::size_t i = 0; i < OptCard.size(); ++i) {
    OptCard[i]->setObjectName(QString("OptCard_%1").arg(i));
    OptCard[i]->setToolTip(tr("The kind can be chosen while the card is outside."));
    kinds->addWidget(OptCard[i]);
    const CardKind kind = i == 0 ? CardKind::kOrdinary : CardKind::kCleaning;
    connect(OptCard[i], &QRadioButton::clicked, this, [this, kind] { OptCard_Click(kind); });
  }
  kinds->addStretch();
  return kinds;
}

QFormLayout* CardPage::MakeTracks() {
  auto* tracks = new QFormLayout;
  tracks->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  tracks->setVerticalSpacing(6);
  for (std::size_t i = 0; i < kTracks; ++i) {
    auto* box = new QLineEdit(this);
    box->setObjectName(QString("TxtTrack_%1").arg(i + 1));
    box->setMaxLength(static_cast<int>(kTrackLength[i]));
    box->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[\\x01\\x04-\\x7e]*"), box));
    box->setPlaceholderText(tr("empty"));
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(box, &QLineEdit::textEdited, this,
            [this, i](const QString& text) { model_.SetTrack(i, text.toLatin1().toStdString()); });
    TxtTrack[i] = box;
    tracks->addRow(tr("Track &%1").arg(i + 1), box);
  }
  return tracks;
}

QPushButton* CardPage::MakeButton(const char* name, const QString& caption,
                                  void (CardPage::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this, click);
  return button;
}

void CardPage::CmdInsertCard_Click() { server_.InsertCard(); }

void CardPage::CmdPullOutCard_Click() { server_.PullOutCard(); }

void CardPage::CmdNewCard_Click() {
  if (deck_.IsFull() || model_.State().place != CardPlace::kOutside) return;
  model_.ChangeCard(deck_.Make(model_.State().card));
  CmbDeck->addItem(ToQt(deck_.Name(deck_.Current())));
  Refresh();
}

void CardPage::CmbDeck_Click(int index) {
  const auto chosen = static_cast<std::size_t>(index);
  if (chosen == deck_.Current() || model_.State().place != CardPlace::kOutside) return;
  model_.ChangeCard(deck_.Choose(chosen, model_.State().card));
  Refresh();
}

void CardPage::OptCard_Click(CardKind kind) {
  model_.SetCardKind(kind);
  Refresh();
}

void CardPage::Refresh() {
  const PrinterState& state = model_.State();
  const bool outside = state.place == CardPlace::kOutside;
  slot_->Show(state.place, state.card.kind);
  slot_->ShowLed(state.indicators.LedIsLit(server_.Now()), LedColour(state.indicators.led_colour));
  CmdInsertCard->setEnabled(outside);
  CmdPullOutCard->setEnabled(!outside && !model_.IsWorking());
  CmdNewCard->setEnabled(outside && !deck_.IsFull());
  CmbDeck->setEnabled(outside);
  CmbDeck->setCurrentIndex(static_cast<int>(deck_.Current()));
  OptCard[state.card.kind == CardKind::kCleaning ? 1 : 0]->setChecked(true);
  for (QRadioButton* option : OptCard) option->setEnabled(outside);
  for (std::size_t i = 0; i < kTracks; ++i) {
    SetText(TxtTrack[i], ToQt(state.card.tracks[i]));
    TxtTrack[i]->setEnabled(state.card.kind == CardKind::kOrdinary);
  }
}

}  // namespace vantrel::printer
