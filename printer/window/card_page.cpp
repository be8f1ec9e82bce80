// SPDX-License-Identifier: MIT

#include "printer/window/card_page.h"

#include "dialogs/dialogs.h"
#include "dialogs/guard.h"
#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/card_slot_view.h"
#include "printer/window/form_text.h"
#include "printer/window/indicator_sign.h"
#include "printer/window/track_box.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace vantrel::printer {
namespace {

// The first widgets of those that Enable is given are the hand's.
constexpr int kHands = 2;
constexpr qsizetype kLongestName = 60;

}  // namespace

using dialogs::GuardedSlot;

CardPage::CardPage(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
                   QWidget* parent)
    : QWidget(parent),
      model_(model),
      server_(server),
      helpers_(helpers),
      slot_(new CardSlotView(this)) {
  slot_->setObjectName("CardSlotView");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(9, 6, 9, 4);
  layout->setSpacing(6);
  layout->addWidget(slot_, 1);
  layout->addLayout(MakeHand());
  layout->addLayout(MakeDeck());
  layout->addLayout(MakeKinds());
  layout->addLayout(MakeTracks());
  LblTracks = new QLabel(this);
  LblTracks->setObjectName("LblTracks");
  LblTracks->setTextFormat(Qt::PlainText);
  // It is cut where it is wider than the page, and makes that no wider. Room for two lines, so that
  // nothing moves when something is typed.
  LblTracks->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  LblTracks->setFixedHeight(2 * LblTracks->fontMetrics().lineSpacing());
  LblTracks->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  layout->addWidget(LblTracks);
  Refresh();
  ShowEdits();
}

QHBoxLayout* CardPage::MakeHand() {
  CmdInsertCard = MakeButton("CmdInsertCard", tr("&Insert card"), &CardPage::CmdInsertCard_Click);
  CmdPullOutCard =
      MakeButton("CmdPullOutCard", tr("Pull &out card"), &CardPage::CmdPullOutCard_Click);
  auto* hand = new QHBoxLayout;
  for (QPushButton* button : {CmdInsertCard, CmdPullOutCard}) hand->addWidget(button);
  hand->addStretch();
  return hand;
}

QHBoxLayout* CardPage::MakeDeck() {
  CmbDeck = new QComboBox(this);
  CmbDeck->setObjectName("CmbDeck");
  CmbDeck->setAccessibleName(tr("Deck of cards"));
  // Its text stands in for the name on some systems.
  CmbDeck->setAccessibleDescription(CmbDeck->accessibleName());
  CmbDeck->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  CmbDeck->setMinimumContentsLength(8);
  FillDeck();
  connect(CmbDeck, &QComboBox::activated, this,
          GuardedSlot(helpers_.guard, [this](int index) { CmbDeck_Click(index); }));
  CmdNewCard = MakeButton("CmdNewCard", tr("&New card"), &CardPage::CmdNewCard_Click);
  const QString outside = tr("While the card is outside.");
  CmdNewCard->setToolTip(tr("Adds a blank card to the deck and takes it. %1").arg(outside));
  CmbDeck->setToolTip(tr("The card to put in. %1").arg(outside));
  CmdRenameCard = MakeButton("CmdRenameCard", tr("Rename..."), &CardPage::CmdRenameCard_Click);
  CmdRenameCard->setToolTip(tr("Gives the card another name."));
  CmdRemoveCard = MakeButton("CmdRemoveCard", tr("Remove..."), &CardPage::CmdRemoveCard_Click);
  CmdRemoveCard->setToolTip(tr("Takes the card out of the deck. %1").arg(outside));
  auto* deck = new QHBoxLayout;
  deck->addWidget(CmbDeck, 1);
  for (QPushButton* button : {CmdNewCard, CmdRenameCard, CmdRemoveCard}) deck->addWidget(button);
  return deck;
}

void CardPage::FillDeck() {
  CmbDeck->clear();
  for (std::size_t i = 0; i < deck_.Size(); ++i)
    CmbDeck->addItem(QString::fromStdString(deck_.Name(i)));
  CmbDeck->setCurrentIndex(static_cast<int>(deck_.Current()));
}

QHBoxLayout* CardPage::MakeKinds() {
  OptCard = {new QRadioButton(tr("Or&dinary card"), this),
             new QRadioButton(tr("C&leaning card"), this)};
  auto* kinds = new QHBoxLayout;
  for (std::size_t i = 0; i < OptCard.size(); ++i) {
    OptCard[i]->setObjectName(QString("OptCard_%1").arg(i));
    OptCard[i]->setToolTip(tr("The kind can be chosen while the card is outside."));
    kinds->addWidget(OptCard[i]);
    const CardKind kind = i == 0 ? CardKind::kOrdinary : CardKind::kCleaning;
    connect(OptCard[i], &QRadioButton::clicked, this,
            GuardedSlot(helpers_.guard, [this, kind] { OptCard_Click(kind); }));
  }
  kinds->addStretch();
  return kinds;
}

QFormLayout* CardPage::MakeTracks() {
  auto* tracks = new QFormLayout;
  tracks->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  tracks->setVerticalSpacing(4);
  for (std::size_t i = 0; i < kTracks; ++i) {
    auto* box = new TrackBox(static_cast<int>(kTrackLength[i]), this);
    box->setObjectName(QString("TxtTrack_%1").arg(i + 1));
    connect(box, &TrackBox::Entered, this,
            GuardedSlot(helpers_.guard, [this, i](const QString& text) {
              model_.SetTrack(i, text.toLatin1().toStdString());
              unsaved_ = true;
              Refresh();
            }));
    connect(box, &TrackBox::EditChanged, this,
            GuardedSlot(helpers_.guard, [this] { ShowEdits(); }));
    TxtTrack[i] = box;
    tracks->addRow(tr("Track &%1").arg(i + 1), box);
  }
  return tracks;
}

QPushButton* CardPage::MakeButton(const char* name, const QString& caption,
                                  void (CardPage::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this, click] { (this->*click)(); }));
  return button;
}

bool CardPage::IsOutside() const { return model_.State().place == CardPlace::kOutside; }

void CardPage::PutEditsAside() {
  Edits& edits = edits_[deck_.Current()];
  for (std::size_t i = 0; i < kTracks; ++i) {
    edits[i] = TxtTrack[i]->Edit();
    TxtTrack[i]->SetEdit({});
  }
}

void CardPage::BringEdits() {
  Refresh();
  const Edits edits = edits_[deck_.Current()];
  for (std::size_t i = 0; i < kTracks; ++i) TxtTrack[i]->SetEdit(edits[i]);
}

void CardPage::ShowEdits() {
  // Told while the page is being made, too.
  if (LblTracks == nullptr) return;
  QStringList edited;
  QStringList overtaken;
  for (std::size_t i = 0; i < kTracks; ++i) {
    if (TxtTrack[i]->Edit()) edited += QString::number(i + 1);
    if (!TxtTrack[i]->IsOvertaken()) continue;
    const QString track = TxtTrack[i]->Track();
    overtaken += track.isEmpty() ? tr("Track %1 is empty now.").arg(i + 1)
                                 : tr("Track %1 holds \"%2\" now.").arg(i + 1).arg(track);
  }
  QString text;
  if (!edited.isEmpty()) {
    text = (QStringList(tr("Track %1 is not recorded yet.").arg(edited.join(", "))) + overtaken)
               .join(' ') +
           '\n' + tr("Enter records it, Escape takes it back.");
  }
  LblTracks->setText(text);
  LblTracks->setToolTip(text);
}

void CardPage::CmdInsertCard_Click() { server_.InsertCard(); }

void CardPage::CmdPullOutCard_Click() { server_.PullOutCard(); }

void CardPage::CmdNewCard_Click() {
  if (deck_.IsFull() || !IsOutside()) return;
  PutEditsAside();
  model_.ChangeCard(deck_.Make(model_.State().card));
  unsaved_ = true;
  FillDeck();
  BringEdits();
}

void CardPage::CmdRenameCard_Click() {
  const std::size_t current = deck_.Current();
  const QString name =
      QString::fromStdString(
          helpers_.dialogs.InputBox("Name of the card:", "Rename card", deck_.Name(current)))
          .simplified()
          .left(kLongestName);
  if (name.isEmpty() || name.toStdString() == deck_.Name(current)) return;
  DeckContents deck = Deck();
  deck.cards[current].name = name.toStdString();
  deck_.Replace(std::move(deck));
  unsaved_ = true;
  FillDeck();
}

void CardPage::CmdRemoveCard_Click() {
  if (deck_.Size() < 2 || !IsOutside()) return;
  const std::size_t current = deck_.Current();
  const std::string question = "Take \"" + deck_.Name(current) +
                               "\" out of the deck? What is recorded and printed on it is lost.";
  if (helpers_.dialogs.MsgBox(question, dialogs::Buttons::kYesNo, "Remove card",
                              dialogs::Icon::kExclamation) != dialogs::Answer::kYes)
    return;
  // The card may have been put in meanwhile.
  if (!IsOutside()) return;
  PutEditsAside();
  std::map<std::size_t, Edits> edits;
  for (auto& [place, texts] : edits_) {
    if (place != current) edits[place > current ? place - 1 : place] = std::move(texts);
  }
  edits_ = std::move(edits);
  DeckContents deck = Deck();
  deck.cards.erase(deck.cards.begin() + static_cast<std::ptrdiff_t>(current));
  deck.current = std::min(current, deck.cards.size() - 1);
  model_.ChangeCard(deck_.Replace(std::move(deck)));
  unsaved_ = true;
  FillDeck();
  BringEdits();
}

DeckContents CardPage::Deck() const { return deck_.Contents(model_.State().card); }

bool CardPage::SetDeck(DeckContents deck) {
  if (!IsOutside()) return false;
  PutEditsAside();
  edits_.clear();
  model_.ChangeCard(deck_.Replace(std::move(deck)));
  unsaved_ = false;
  FillDeck();
  BringEdits();
  return true;
}

bool CardPage::IsUnsaved() const {
  const auto is_typed = [](const auto& text) { return text.has_value(); };
  return unsaved_ ||
         std::any_of(TxtTrack.begin(), TxtTrack.end(),
                     [](const TrackBox* box) { return box->Edit().has_value(); }) ||
         std::any_of(edits_.begin(), edits_.end(), [&](const auto& card) {
           return card.first != deck_.Current() &&
                  std::any_of(card.second.begin(), card.second.end(), is_typed);
         });
}

void CardPage::CmbDeck_Click(int index) {
  const auto chosen = static_cast<std::size_t>(index);
  if (chosen == deck_.Current() || !IsOutside()) return;
  PutEditsAside();
  model_.ChangeCard(deck_.Choose(chosen, model_.State().card));
  BringEdits();
}

void CardPage::OptCard_Click(CardKind kind) {
  if (kind != model_.State().card.kind && model_.SetCardKind(kind)) unsaved_ = true;
  Refresh();
}

void CardPage::Enable(std::initializer_list<std::pair<QWidget*, bool>> widgets) {
  // A widget that is disabled hands its focus to the next one that is not, which would be a track:
  // the next key would change it. It goes to the hand in its place, or while a card moves to the
  // picture, from where the hand takes it over.
  QWidget* const had = window()->focusWidget();
  const bool loses =
      had == slot_ || std::any_of(widgets.begin(), widgets.end(), [had](const auto& widget) {
        return widget.first == had && !widget.second;
      });
  if (loses) {
    const auto hand = std::find_if(widgets.begin(), widgets.begin() + kHands,
                                   [](const auto& widget) { return widget.second; });
    QWidget* const next = hand != widgets.begin() + kHands ? hand->first : slot_;
    next->setEnabled(true);
    if (next != had) next->setFocus();
  }
  for (const auto& [widget, enabled] : widgets) widget->setEnabled(enabled);
}

void CardPage::Refresh() {
  const PrinterState& state = model_.State();
  const bool outside = IsOutside();
  slot_->Show(state.place, state.card.kind);
  slot_->ShowLed(state.indicators.LedIsLit(server_.Now()), LedColour(state.indicators.led_colour));
  Enable({{CmdInsertCard, outside},
          {CmdPullOutCard, !outside && !model_.IsWorking()},
          {CmbDeck, outside},
          {CmdNewCard, outside && !deck_.IsFull()},
          {CmdRemoveCard, outside && deck_.Size() > 1},
          {OptCard[0], outside},
          {OptCard[1], outside}});
  CmbDeck->setCurrentIndex(static_cast<int>(deck_.Current()));
  OptCard[state.card.kind == CardKind::kCleaning ? 1 : 0]->setChecked(true);
  for (std::size_t i = 0; i < kTracks; ++i) {
    TxtTrack[i]->ShowTrack(ToQt(state.card.tracks[i]));
    TxtTrack[i]->setEnabled(state.card.kind == CardKind::kOrdinary);
  }
}

}  // namespace vantrel::printer
