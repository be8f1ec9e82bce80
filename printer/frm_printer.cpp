#include "printer/frm_printer.h"

#include "printer/card_slot_view.h"
#include "printer/printer_model.h"
#include "printer/printer_server.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>

namespace vantrel {
namespace {

// Lines of the log that are kept, and bytes of one that are shown.
constexpr int kLogLines = 500;
constexpr qsizetype kLogBytes = 256;

QString ToQt(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Sets a text only where it is another one, so that a caret and a selection stay.
template <typename Box>
void SetText(Box* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

}  // namespace

FrmPrinter::FrmPrinter(PrinterModel& model, PrinterServer& server, QWidget* parent)
    : QWidget(parent), model_(model), server_(server) {
  setObjectName("FrmPrinter");
  setWindowTitle(tr("Software card printer"));
  auto* top = new QHBoxLayout;
  top->setSpacing(16);
  top->addWidget(MakeCardSide(), 3);
  top->addWidget(MakeStateSide(), 2);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addLayout(top);
  layout->addWidget(MakeLog(), 1);

  connect(&server_, &PrinterServer::Changed, this, &FrmPrinter::Refresh);
  connect(&server_, &PrinterServer::Received, this,
          [this](const QByteArray& bytes) { Log(tr("received"), bytes); });
  connect(&server_, &PrinterServer::Sent, this,
          [this](const QByteArray& bytes) { Log(tr("sent    "), bytes); });
  Refresh();
  resize(940, 660);
}

QWidget* FrmPrinter::MakeCardSide() {
  auto* group = new QGroupBox(tr("Card"), this);
  slot_ = new CardSlotView(group);
  CmdInsertCard = new QPushButton(tr("&Insert card"), group);
  CmdInsertCard->setObjectName("CmdInsertCard");
  CmdPullOutCard = new QPushButton(tr("&Pull out card"), group);
  CmdPullOutCard->setObjectName("CmdPullOutCard");
  OptCard = {new QRadioButton(tr("&Ordinary card"), group),
             new QRadioButton(tr("&Cleaning card"), group)};
  connect(CmdInsertCard, &QPushButton::clicked, this, &FrmPrinter::CmdInsertCard_Click);
  connect(CmdPullOutCard, &QPushButton::clicked, this, &FrmPrinter::CmdPullOutCard_Click);

  auto* hand = new QHBoxLayout;
  hand->addWidget(CmdInsertCard);
  hand->addWidget(CmdPullOutCard);
  hand->addStretch();
  for (std::size_t i = 0; i < OptCard.size(); ++i) {
    OptCard[i]->setObjectName(QString("OptCard_%1").arg(i));
    OptCard[i]->setToolTip(tr("The kind can be chosen while the card is outside."));
    hand->addWidget(OptCard[i]);
    const CardKind kind = i == 0 ? CardKind::kOrdinary : CardKind::kCleaning;
    connect(OptCard[i], &QRadioButton::clicked, this, [this, kind] {
      model_.SetCardKind(kind);
      Refresh();
    });
  }

  auto* tracks = new QFormLayout;
  tracks->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (std::size_t i = 0; i < kTracks; ++i) {
    auto* box = new QLineEdit(group);
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

  auto* layout = new QVBoxLayout(group);
  layout->setSpacing(10);
  layout->addWidget(slot_, 1);
  layout->addLayout(hand);
  layout->addLayout(tracks);
  return group;
}

QWidget* FrmPrinter::MakeStateSide() {
  auto* group = new QGroupBox(tr("Printer"), this);
  LblActivity = MakeValue("LblActivity");
  QFont large = LblActivity->font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  LblActivity->setFont(large);
  // Room for two lines, so that nothing moves when a wait is told.
  LblActivity->setMinimumHeight(2 * QFontMetrics(large).lineSpacing());
  auto* line = new QFrame(group);
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);

  LblPlace = MakeValue("LblPlace");
  LblLED = MakeValue("LblLED");
  LblBuzzer = MakeValue("LblBuzzer");
  LblTransportCount = MakeValue("LblTransportCount");
  LblPrintCount = MakeValue("LblPrintCount");
  QLabel* device = MakeValue("LblDevice");
  device->setText(ToQt(server_.DevicePath()));
  device->setWordWrap(false);
  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows->setHorizontalSpacing(20);
  rows->setVerticalSpacing(10);
  rows->addRow(tr("Device"), device);
  rows->addRow(tr("Card"), LblPlace);
  rows->addRow(tr("LED"), LblLED);
  rows->addRow(tr("Buzzer"), LblBuzzer);
  rows->addRow(tr("Transports"), LblTransportCount);
  rows->addRow(tr("Prints"), LblPrintCount);

  auto* layout = new QVBoxLayout(group);
  layout->setSpacing(10);
  layout->addWidget(LblActivity);
  layout->addWidget(line);
  layout->addLayout(rows);
  layout->addStretch();
  return group;
}

QLabel* FrmPrinter::MakeValue(const char* name) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setWordWrap(true);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

QWidget* FrmPrinter::MakeLog() {
  auto* group = new QGroupBox(tr("Line"), this);
  TxtLog = new QPlainTextEdit(group);
  TxtLog->setObjectName("TxtLog");
  TxtLog->setReadOnly(true);
  TxtLog->setMaximumBlockCount(kLogLines);
  TxtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  TxtLog->setPlaceholderText(tr("What goes over the line appears here."));
  auto* layout = new QVBoxLayout(group);
  layout->addWidget(TxtLog);
  return group;
}

void FrmPrinter::CmdInsertCard_Click() { server_.InsertCard(); }

void FrmPrinter::CmdPullOutCard_Click() { server_.PullOutCard(); }

void FrmPrinter::Log(const QString& direction, const QByteArray& bytes) {
  if (bytes.isEmpty()) return;
  QString line = direction + "  " + QString::fromLatin1(bytes.left(kLogBytes).toHex(' ').toUpper());
  if (bytes.size() > kLogBytes) line += tr(" ... (%1 bytes)").arg(bytes.size());
  TxtLog->appendPlainText(line);
}

void FrmPrinter::Refresh() {
  const PrinterState& state = model_.State();
  slot_->Show(state.place, state.card.kind, state.indicators);
  const bool outside = state.place == CardPlace::kOutside;
  CmdInsertCard->setEnabled(outside);
  CmdPullOutCard->setEnabled(!outside && !model_.IsWorking());
  OptCard[state.card.kind == CardKind::kCleaning ? 1 : 0]->setChecked(true);
  for (QRadioButton* option : OptCard) option->setEnabled(outside);
  for (std::size_t i = 0; i < kTracks; ++i) {
    SetText(TxtTrack[i], ToQt(state.card.tracks[i]));
    TxtTrack[i]->setEnabled(state.card.kind == CardKind::kOrdinary);
  }
  SetText(LblActivity, ToQt(model_.ActivityInWords()));
  SetText(LblPlace, ToQt(PlaceInWords(state.place)));
  SetText(LblLED, ToQt(LedInWords(state.indicators)));
  SetText(LblBuzzer, ToQt(BuzzerInWords(state.indicators)));
  SetText(LblTransportCount, QString::number(state.transports));
  SetText(LblPrintCount, QString::number(state.prints));
}

}  // namespace vantrel
