#include "printer/frm_printer.h"

#include "link/frame.h"
#include "printer/card_slot_view.h"
#include "printer/face_view.h"
#include "printer/fault_page.h"
#include "printer/file_chooser.h"
#include "printer/indicator_sign.h"
#include "printer/log_panel.h"
#include "printer/printer_model.h"
#include "printer/printer_page.h"
#include "printer/printer_server.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSaveFile>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <string>
#include <string_view>
#include <utility>

namespace vantrel {
namespace {

constexpr int kMargin = 12;

QString ToQt(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QString HexToQt(std::string_view bytes) {
  return ToQt(SpacedPairs(HexTextOf(Bytes(bytes.begin(), bytes.end())))).trimmed();
}

// Sets a text only where it is another one, so that a caret and a selection stay.
template <typename Box>
void SetText(Box* box, const QString& text) {
  if (box->text() == text) return;
  box->setText(text);
  // A line that is longer than its box shows its beginning.
  if constexpr (std::is_same_v<Box, QLineEdit>) {
    if (box->isReadOnly()) box->setCursorPosition(0);
  }
}

QLineEdit* MakeReading(const QString& name, const QString& spoken, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  box->setAccessibleName(spoken);
  box->setReadOnly(true);
  box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return box;
}

}  // namespace

FrmPrinter::FrmPrinter(PrinterModel& model, PrinterServer& server, FileChooser& files,
                       QWidget* parent)
    : QWidget(parent), model_(model), server_(server), files_(files) {
  setObjectName("FrmPrinter");
  setWindowTitle(tr("Software card printer"));
  pages_ = new QTabWidget(this);
  pages_->setObjectName("TabPages");
  pages_->addTab(MakeCardPage(), tr("&Card"));
  pages_->addTab(MakeTracksPage(), tr("&Tracks and buffers"));
  printer_page_ = new PrinterPage(model_, server_, this);
  pages_->addTab(printer_page_, tr("Print&er"));
  fault_page_ = new FaultPage(model_, this);
  pages_->addTab(fault_page_, tr("Fa&ults"));
  auto* top = new QWidget(this);
  auto* sides = new QHBoxLayout(top);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->setSpacing(kMargin);
  sides->addWidget(MakeFaceSide(), 3);
  sides->addWidget(pages_, 2);
  auto* halves = new QSplitter(Qt::Vertical, this);
  halves->setObjectName("SplHalves");
  halves->setChildrenCollapsible(false);
  halves->setHandleWidth(kMargin);
  halves->addWidget(top);
  halves->addWidget(MakeLog(files));
  halves->setStretchFactor(0, 2);
  halves->setStretchFactor(1, 1);
  // At first the face is at its smallest, and the log has the rest.
  halves->setSizes({0, 1000});
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->addWidget(MakeStateBar());
  layout->addWidget(halves, 1);

  draw_face_.setSingleShot(true);
  connect(&draw_face_, &QTimer::timeout, this, [this] { face_->Show(model_.State().card.face); });
  connect(&server_, &PrinterServer::Changed, this, &FrmPrinter::Refresh);
  connect(&server_, &PrinterServer::DeviceChanged, this, &FrmPrinter::ShowDevice);
  recorder_.RecordLineOf(server_);
  Refresh();
  ShowScale();
  ShowDevice();
  resize(1024, 700);
}

QWidget* FrmPrinter::MakeStateBar() {
  auto* bar = new QFrame(this);
  bar->setFrameShape(QFrame::StyledPanel);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(kMargin, 6, kMargin, 6);
  layout->setSpacing(22);
  // Under its caption in small letters stands each value, with a sign where it has one.
  const auto add = [&](const QString& caption, QLabel* value, QWidget* sign = nullptr,
                       QWidget* more = nullptr) {
    auto* title = new QLabel(caption, bar);
    QFont small = title->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    title->setFont(small);
    title->setForegroundRole(QPalette::PlaceholderText);
    title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    if (sign != nullptr) row->addWidget(sign, 0, Qt::AlignVCenter);
    row->addWidget(value, 1);
    if (more != nullptr) row->addWidget(more, 0, Qt::AlignVCenter);
    auto* column = new QVBoxLayout;
    column->setSpacing(1);
    column->addWidget(title);
    column->addLayout(row, 1);
    layout->addLayout(column);
    return column;
  };
  // The widest words of each, so that nothing moves when they change.
  const auto reserve = [](QLabel* value, const QString& widest) {
    value->setMinimumWidth(QFontMetrics(value->font()).horizontalAdvance(widest) + 4);
  };

  LblActivity = MakeValue("LblActivity");
  QFont large = LblActivity->font();
  large.setPointSizeF(large.pointSizeF() * 1.1);
  LblActivity->setFont(large);
  // Room for two lines, so that nothing moves when a wait is told.
  LblActivity->setWordWrap(true);
  LblActivity->setMinimumSize(190, 2 * QFontMetrics(large).lineSpacing());
  add(tr("Printer"), LblActivity);
  layout->setStretch(0, 1);
  LblDevice = MakeValue("LblDevice");
  reserve(LblDevice, "/dev/pts/100");
  add(tr("Device"), LblDevice);
  LblPlace = MakeValue("LblPlace");
  reserve(LblPlace, "waiting to be pulled out");
  add(tr("Card"), LblPlace);
  LblLED = MakeValue("LblLED");
  reserve(LblLED, "3 cycles, orange");
  led_ = new IndicatorSign(IndicatorSign::Shape::kLamp, bar);
  led_->setObjectName("SignLED");
  add(tr("LED"), LblLED, led_);
  LblBuzzer = MakeValue("LblBuzzer");
  reserve(LblBuzzer, "3 cycles");
  buzzer_ = new IndicatorSign(IndicatorSign::Shape::kBell, bar);
  buzzer_->setObjectName("SignBuzzer");
  ChkMute = new QCheckBox(tr("&Mute"), bar);
  ChkMute->setObjectName("ChkMute");
  ChkMute->setToolTip(tr("Shows the buzzer and keeps it silent."));
  connect(buzzer_, &IndicatorSign::TurnedOn, this, [this] {
    if (!ChkMute->isChecked()) QApplication::beep();
  });
  add(tr("Buzzer"), LblBuzzer, buzzer_, ChkMute);
  LblTransportCount = MakeValue("LblTransportCount");
  add(tr("Transports"), LblTransportCount);
  LblPrintCount = MakeValue("LblPrintCount");
  add(tr("Prints"), LblPrintCount);
  return bar;
}

QWidget* FrmPrinter::MakeFaceSide() {
  auto* group = new QGroupBox(tr("Face of the card"), this);
  face_ = new FaceView(group);
  face_->setObjectName("FaceView");
  auto* scroll = new QScrollArea(group);
  scroll->setObjectName("ScrFace");
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(face_);
  // The whole face fits while it lies; when it stands it is scrolled, or the window made higher.
  scroll->setMinimumSize(face_->sizeHint());
  connect(face_, &FaceView::Scaled, this, &FrmPrinter::ShowScale);

  CmdTurn = MakeButton("CmdTurn", tr("Tu&rn"), &FrmPrinter::CmdTurn_Click);
  CmdTurn->setToolTip(tr("Turns the picture by a quarter."));
  CmdSavePicture =
      MakeButton("CmdSavePicture", tr("Sa&ve picture..."), &FrmPrinter::CmdSavePicture_Click);
  LblScale = new QLabel(group);
  LblScale->setObjectName("LblScale");
  LblScale->setTextFormat(Qt::PlainText);
  auto* row = new QHBoxLayout;
  row->addWidget(CmdTurn);
  row->addWidget(CmdSavePicture);
  row->addStretch();
  row->addWidget(LblScale);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->addWidget(scroll, 1);
  layout->addLayout(row);
  return group;
}

QWidget* FrmPrinter::MakeCardPage() {
  auto* page = new QWidget(this);
  slot_ = new CardSlotView(page);
  slot_->setObjectName("CardSlotView");
  CmdInsertCard = MakeButton("CmdInsertCard", tr("&Insert card"), &FrmPrinter::CmdInsertCard_Click);
  CmdPullOutCard =
      MakeButton("CmdPullOutCard", tr("&Pull out card"), &FrmPrinter::CmdPullOutCard_Click);
  CmdNewCard = MakeButton("CmdNewCard", tr("&New card"), &FrmPrinter::CmdNewCard_Click);
  CmbDeck = new QComboBox(page);
  CmbDeck->setObjectName("CmbDeck");
  CmbDeck->setAccessibleName(tr("Deck of cards"));
  CmbDeck->addItem(ToQt(deck_.Name(0)));
  connect(CmbDeck, &QComboBox::activated, this, &FrmPrinter::CmbDeck_Click);
  const QString outside = tr("While the card is outside.");
  CmdNewCard->setToolTip(tr("Adds a blank card to the deck and takes it. %1").arg(outside));
  CmbDeck->setToolTip(tr("The card to put in. %1").arg(outside));
  auto* hand = new QHBoxLayout;
  for (QPushButton* button : {CmdInsertCard, CmdPullOutCard}) hand->addWidget(button);
  hand->addStretch();
  hand->addWidget(CmbDeck);
  hand->addWidget(CmdNewCard);

  OptCard = {new QRadioButton(tr("&Ordinary card"), page),
             new QRadioButton(tr("C&leaning card"), page)};
  auto* kinds = new QHBoxLayout;
  for (std::size_t i = 0; i < OptCard.size(); ++i) {
    OptCard[i]->setObjectName(QString("OptCard_%1").arg(i));
    OptCard[i]->setToolTip(tr("The kind can be chosen while the card is outside."));
    kinds->addWidget(OptCard[i]);
    const CardKind kind = i == 0 ? CardKind::kOrdinary : CardKind::kCleaning;
    connect(OptCard[i], &QRadioButton::clicked, this, [this, kind] {
      model_.SetCardKind(kind);
      Refresh();
    });
  }
  kinds->addStretch();

  auto* tracks = new QFormLayout;
  tracks->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  tracks->setVerticalSpacing(6);
  for (std::size_t i = 0; i < kTracks; ++i) {
    auto* box = new QLineEdit(page);
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

  auto* layout = new QVBoxLayout(page);
  layout->setSpacing(8);
  layout->addWidget(slot_, 1);
  layout->addLayout(hand);
  layout->addLayout(kinds);
  layout->addLayout(tracks);
  return page;
}

QWidget* FrmPrinter::MakeTracksPage() {
  auto* page = new QWidget(this);
  auto* layout = new QGridLayout(page);
  layout->setHorizontalSpacing(10);
  layout->setVerticalSpacing(6);
  layout->setColumnStretch(1, 1);
  int row = 0;
  const auto add = [&](const QString& caption, QWidget* box) {
    layout->addWidget(new QLabel(caption, page), row, 0);
    layout->addWidget(box, row++, 1);
  };
  for (std::size_t i = 0; i < kTracks; ++i) {
    const QString track = tr("Track %1").arg(i + 1);
    TxtTrackHex[i] =
        MakeReading(QString("TxtTrackHex_%1").arg(i + 1), tr("%1, hex").arg(track), page);
    TxtBuffer[i] =
        MakeReading(QString("TxtBuffer_%1").arg(i + 1), tr("Buffer of %1").arg(track), page);
    TxtBufferHex[i] = MakeReading(QString("TxtBufferHex_%1").arg(i + 1),
                                  tr("Buffer of %1, hex").arg(track), page);
    add(tr("%1, hex").arg(track), TxtTrackHex[i]);
    add(tr("Its buffer"), TxtBuffer[i]);
    add(tr("Its buffer, hex"), TxtBufferHex[i]);
    if (i + 1 < kTracks) layout->setRowMinimumHeight(row++, 2);
  }
  layout->setRowStretch(row, 1);
  return page;
}

QLabel* FrmPrinter::MakeValue(const char* name) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

QPushButton* FrmPrinter::MakeButton(const char* name, const QString& caption,
                                    void (FrmPrinter::*click)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this, click);
  return button;
}

QWidget* FrmPrinter::MakeLog(FileChooser& files) {
  auto* group = new QGroupBox(tr("Line"), this);
  log_ = new LogPanel(recorder_, files, group);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->addWidget(log_);
  return group;
}

void FrmPrinter::CmdInsertCard_Click() { server_.InsertCard(); }

void FrmPrinter::CmdPullOutCard_Click() { server_.PullOutCard(); }

void FrmPrinter::CmdNewCard_Click() {
  if (deck_.IsFull() || model_.State().place != CardPlace::kOutside) return;
  model_.ChangeCard(deck_.Make(model_.State().card));
  CmbDeck->addItem(ToQt(deck_.Name(deck_.Current())));
  Refresh();
}

void FrmPrinter::CmbDeck_Click(int index) {
  const auto chosen = static_cast<std::size_t>(index);
  if (chosen == deck_.Current() || model_.State().place != CardPlace::kOutside) return;
  model_.ChangeCard(deck_.Choose(chosen, model_.State().card));
  Refresh();
}

void FrmPrinter::CmdTurn_Click() { face_->Turn(); }

void FrmPrinter::CmdSavePicture_Click() {
  const QString path =
      files_.SaveName(this, tr("Save picture"), "card.png", tr("Pictures (*.png)"));
  if (path.isEmpty()) return;
  face_->Show(model_.State().card.face);
  QSaveFile file(path);
  QImageWriter writer(&file, "png");
  if (file.open(QIODevice::WriteOnly) && writer.write(face_->Picture()) && file.commit())
    log_->Tell(tr("Saved to %1").arg(path));
  else
    log_->Tell(tr("%1 was not saved: %2.").arg(path, file.errorString()));
}

void FrmPrinter::Refresh() {
  const PrinterState& state = model_.State();
  slot_->Show(state.place, state.card.kind);
  const bool outside = state.place == CardPlace::kOutside;
  CmdInsertCard->setEnabled(outside);
  CmdPullOutCard->setEnabled(!outside && !model_.IsWorking());
  CmdNewCard->setEnabled(outside && !deck_.IsFull());
  CmbDeck->setEnabled(outside);
  CmbDeck->setCurrentIndex(static_cast<int>(deck_.Current()));
  OptCard[state.card.kind == CardKind::kCleaning ? 1 : 0]->setChecked(true);
  for (QRadioButton* option : OptCard) option->setEnabled(outside);
  SetText(LblActivity, ToQt(model_.ActivityInWords()));
  SetText(LblPlace, ToQt(PlaceInWords(state.place)));
  SetText(LblTransportCount, QString::number(state.transports));
  SetText(LblPrintCount, QString::number(state.prints));
  RefreshIndicators();
  RefreshTracks();
  printer_page_->Refresh();
  fault_page_->Refresh();
  if (!draw_face_.isActive()) draw_face_.start(0);
}

void FrmPrinter::RefreshTracks() {
  const PrinterState& state = model_.State();
  for (std::size_t i = 0; i < kTracks; ++i) {
    SetText(TxtTrack[i], ToQt(state.card.tracks[i]));
    TxtTrack[i]->setEnabled(state.card.kind == CardKind::kOrdinary);
    SetText(TxtTrackHex[i], HexToQt(state.card.tracks[i]));
    const auto& buffer = state.buffers[i];
    SetText(TxtBuffer[i], ToQt(buffer.value_or("")));
    SetText(TxtBufferHex[i], HexToQt(buffer.value_or("")));
    TxtTrackHex[i]->setPlaceholderText(tr("empty"));
    for (QLineEdit* box : {TxtBuffer[i], TxtBufferHex[i]})
      box->setPlaceholderText(buffer ? tr("empty") : tr("no card has passed"));
  }
}

void FrmPrinter::RefreshIndicators() {
  const Indicators& indicators = model_.State().indicators;
  SetText(LblLED, ToQt(LedInWords(indicators)));
  SetText(LblBuzzer, ToQt(BuzzerInWords(indicators)));
  // The model tells of every flash, so what is so now is so until it tells again.
  const Moment now = server_.Now();
  const QColor colour = LedColour(indicators.led_colour);
  const bool lit = indicators.LedIsLit(now);
  led_->Show(lit, colour);
  slot_->ShowLed(lit, colour);
  buzzer_->Show(indicators.BuzzerSounds(now), QColor(0xff, 0xb3, 0x00));
}

void FrmPrinter::ShowDevice() {
  const std::string path = server_.DevicePath();
  SetText(LblDevice, path.empty() ? tr("unplugged") : ToQt(path));
}

void FrmPrinter::ShowScale() {
  if (LblScale == nullptr) return;
  const QSize dots = face_->Picture().size();
  LblScale->setText(
      tr("%1 × %2 dots, %3:1").arg(dots.width()).arg(dots.height()).arg(face_->Scale()));
}

}  // namespace vantrel
