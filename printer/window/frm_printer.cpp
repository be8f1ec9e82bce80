// SPDX-License-Identifier: MIT

#include "printer/window/frm_printer.h"

#include "dialogs/dialogs.h"
#include "dialogs/file_chooser.h"
#include "dialogs/guard.h"
#include "log/log_panel.h"
#include "printer/model/printer_model.h"
#include "printer/service/deck_file.h"
#include "printer/service/line_recording.h"
#include "printer/service/printer_server.h"
#include "printer/window/buffer_page.h"
#include "printer/window/card_page.h"
#include "printer/window/face_side.h"
#include "printer/window/fault_page.h"
#include "printer/window/printer_page.h"
#include "printer/window/state_bar.h"
#include "printer/window/tracks_page.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

constexpr int kMargin = 10;
// As large as this at first with a font of that height, larger with a larger font, where the screen
// lets it, with room left for the frame.
constexpr QSize kFirstSize{1120, 860};
constexpr double kUsualFont = 15;
constexpr QSize kFrame{20, 50};
constexpr int kFirstRows = 8;

constexpr const char* kKeys =
    "F1: these keys\r\n"
    "Alt+C, T, B, P, U: the page of card, tracks, print buffer, printer, faults\r\n"
    "Alt+I, Alt+O: insert the card, pull it out\r\n"
    "Enter, Escape in a track: record what was typed, take it back\r\n"
    "Ctrl+F, F3, Shift+F3: find in the log, forwards, backwards\r\n"
    "Ctrl+O, Ctrl+S: open and save the deck\r\n"
    "Ctrl+0 to Ctrl+3, Ctrl+R: the size of the face, and turning it\r\n"
    "Ctrl+Shift+C: copy the picture\r\n"
    "Ctrl+Q: quit";

}  // namespace

FrmPrinter::FrmPrinter(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
                       QSettings* settings, QWidget* parent)
    : QWidget(parent), model_(model), server_(server), helpers_(helpers), settings_(settings) {
  setObjectName("FrmPrinter");
  setWindowTitle(tr("Software card printer"));
  // The key Tab follows the order in which these are made.
  pages_ = new QTabWidget(this);
  pages_->setObjectName("TabPages");
  pages_->setAccessibleName(tr("Pages"));
  card_page_ = new CardPage(model, server, helpers, this);
  AddPage(card_page_, tr("&Card"));
  tracks_page_ = new TracksPage(model, this);
  AddPage(tracks_page_, tr("&Tracks"));
  buffer_page_ = new BufferPage(model, helpers, this);
  AddPage(buffer_page_, tr("Print &buffer"));
  printer_page_ = new PrinterPage(model, server, helpers, this);
  AddPage(printer_page_, tr("&Printer"));
  fault_page_ = new FaultPage(model, helpers, this);
  AddPage(fault_page_, tr("Fa&ults"));
  sides_ = new QSplitter(Qt::Horizontal, this);
  sides_->setObjectName("SplSides");
  face_side_ = new FaceSide(model, helpers, this);
  sides_->addWidget(face_side_);
  sides_->addWidget(pages_);
  sides_->setStretchFactor(0, 3);
  sides_->setStretchFactor(1, 2);
  halves_ = new QSplitter(Qt::Vertical, this);
  halves_->setObjectName("SplHalves");
  halves_->addWidget(sides_);
  halves_->addWidget(MakeLog());
  halves_->setStretchFactor(0, 1);
  halves_->setStretchFactor(1, 1);
  for (QSplitter* splitter : {sides_, halves_}) {
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(kMargin);
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  layout->setMenuBar(MakeMenus());
  state_bar_ = new StateBar(model, server, helpers, this);
  layout->addWidget(state_bar_);
  layout->addWidget(halves_, 1);

  connect(face_side_, &FaceSide::Told, this,
          dialogs::GuardedSlot(helpers.guard, [this](const QString& text) { log_->Tell(text); }));
  connect(&server, &PrinterServer::Changed, this,
          dialogs::GuardedSlot(helpers.guard, [this] { Refresh(); }));
  connect(&server, &PrinterServer::DeviceChanged, this,
          dialogs::GuardedSlot(helpers.guard, [this] { TellDevice(); }));
  RecordLineOf(server, recorder_);
  TellDevice();
  const QSize first_size = kFirstSize * std::max(1.0, fontMetrics().height() / kUsualFont);
  resize(first_size.boundedTo(screen()->availableSize() - kFrame));
  is_placed_ = Recall();
}

FrmPrinter::~FrmPrinter() { Remember(); }

void FrmPrinter::ShowMissingFonts(const QStringList& fonts) { face_side_->ShowMissingFonts(fonts); }

void FrmPrinter::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!is_placed_) ShareHeight();
  is_placed_ = true;
}

void FrmPrinter::AddPage(QWidget* page, const QString& title) {
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidget(page);
  scroll->setMinimumWidth(page->minimumSizeHint().width() +
                          scroll->verticalScrollBar()->sizeHint().width());
  scroll->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  pages_->addTab(scroll, title);
}

QWidget* FrmPrinter::MakeLog() {
  auto* group = new QGroupBox(tr("Line"), this);
  log_ = new log::LogPanel(recorder_, helpers_, group);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(8, 4, 8, 6);
  layout->addWidget(log_);
  return group;
}

QMenuBar* FrmPrinter::MakeMenus() {
  auto* bar = new QMenuBar(this);
  bar->setObjectName("MnuPrinter");
  MakeFileMenu(*bar->addMenu(tr("&File")));
  MakeEditMenu(*bar->addMenu(tr("&Edit")));
  MakeViewMenu(*bar->addMenu(tr("&View")));
  MakeHelpMenu(*bar->addMenu(tr("&Help")));
  return bar;
}

QAction* FrmPrinter::Add(QMenu& menu, const QString& caption, const QKeySequence& keys,
                         std::function<void()> act) {
  QAction* action = menu.addAction(caption);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, dialogs::Guarded(helpers_.guard, std::move(act)));
  return action;
}

void FrmPrinter::MakeFileMenu(QMenu& menu) {
  menu.setToolTipsVisible(true);
  open_deck_ = Add(menu, tr("&Open deck..."), QKeySequence::Open, [this] { OpenDeck(); });
  open_deck_->setToolTip(tr("While the card is outside."));
  Add(menu, tr("&Save deck..."), QKeySequence::Save, [this] { SaveDeck(); });
  menu.addSeparator();
  Add(menu, tr("Save &picture..."), {}, [this] { face_side_->CmdSavePicture_Click(); });
  Add(menu, tr("Save &log..."), {}, [this] { log_->CmdSaveLog_Click(); });
  menu.addSeparator();
  Add(menu, tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
}

void FrmPrinter::MakeEditMenu(QMenu& menu) {
  // Its key belongs to whatever has the focus.
  Add(menu, tr("&Copy\tCtrl+C"), {}, [this] { Copy(); });
  Add(menu, tr("Copy p&icture"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
      [this] { face_side_->CmdCopyPicture_Click(); });
  menu.addSeparator();
  menu.addActions({log_->Find(), log_->FindNext(), log_->FindBack()});
  menu.addSeparator();
  Add(menu, tr("C&lear the log"), {}, [this] { log_->CmdClearLog_Click(); });
}

void FrmPrinter::MakeViewMenu(QMenu& menu) {
  const QStringList zooms{tr("&Fit the face"), tr("Face &1:1"), tr("Face &2:1"), tr("Face &3:1")};
  for (int zoom = 0; zoom < zooms.size(); ++zoom)
    Add(menu, zooms[zoom], QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + zoom)),
        [this, zoom] { face_side_->SetZoom(zoom); });
  Add(menu, tr("&Turn the face"), QKeySequence(Qt::CTRL | Qt::Key_R),
      [this] { face_side_->CmdTurn_Click(); });
  menu.addSeparator();
  const QStringList pages{tr("&Card"), tr("Tr&acks"), tr("Print &buffer"), tr("&Printer"),
                          tr("Fa&ults")};
  for (int page = 0; page < pages.size(); ++page)
    Add(menu, pages[page], {}, [this, page] { pages_->setCurrentIndex(page); });
}

void FrmPrinter::MakeHelpMenu(QMenu& menu) {
  Add(menu, tr("&Keys"), QKeySequence(Qt::Key_F1), [this] { Tell(tr("Keys"), tr(kKeys)); });
  Add(menu, tr("&About"), {}, [this] {
    Tell(tr("About"),
         tr("vantrel-printer %1\r\n\r\nA rewritable-card printer in software. It "
            "answers on %2 as a printer on a serial line would.")
             .arg(VANTREL_VERSION, server_.DevicePath().empty()
                                       ? tr("no device")
                                       : QString::fromStdString(server_.DevicePath())));
  });
}

void FrmPrinter::Tell(const QString& title, const QString& text) {
  helpers_.dialogs.MsgBox(text.toStdString(), dialogs::Buttons::kOk, title.toStdString());
}

void FrmPrinter::OpenDeck() {
  if (!MayLoseDeck()) return;
  const QString path =
      helpers_.files.OpenName(this, tr("Open deck"), tr("Decks of cards (*.json);;All files (*)"));
  if (path.isEmpty()) return;
  std::string error;
  try {
    if (!card_page_->SetDeck(printer::OpenDeck(QFile::encodeName(path).toStdString())))
      error = "A deck can be opened while the card is outside.";
  } catch (const std::runtime_error& refusal) {
    error = QString::fromLocal8Bit(refusal.what()).toStdString();
  }
  if (error.empty()) return log_->Tell(tr("Opened %1").arg(path));
  helpers_.dialogs.MsgBox(error, dialogs::Buttons::kOk, tr("Open deck").toStdString(),
                          dialogs::Icon::kCritical);
}

bool FrmPrinter::SaveDeck() {
  const QString path =
      helpers_.files.SaveName(this, tr("Save deck"), "cards.json", tr("Decks of cards (*.json)"));
  if (path.isEmpty()) return false;
  const std::string error =
      printer::SaveDeck(card_page_->Deck(), QFile::encodeName(path).toStdString());
  if (error.empty()) {
    card_page_->TellSaved();
    log_->Tell(tr("Saved to %1").arg(path));
    return true;
  }
  helpers_.dialogs.MsgBox(QString::fromLocal8Bit(error.c_str()).toStdString(),
                          dialogs::Buttons::kOk, tr("Save deck").toStdString(),
                          dialogs::Icon::kCritical);
  return false;
}

bool FrmPrinter::MayLoseDeck() {
  if (!card_page_->IsUnsaved()) return true;
  const dialogs::Answer answer = helpers_.dialogs.MsgBox(
      "Cards were made or changed by hand and are not saved. Save the deck?",
      dialogs::Buttons::kYesNoCancel, windowTitle().toStdString(), dialogs::Icon::kExclamation);
  if (answer == dialogs::Answer::kYes) return SaveDeck();
  return answer == dialogs::Answer::kNo;
}

void FrmPrinter::closeEvent(QCloseEvent* event) {
  bool closes = true;
  helpers_.guard.Run([&] { closes = MayLoseDeck(); });
  event->setAccepted(closes);
}

void FrmPrinter::Copy() {
  if (auto* edit = qobject_cast<QLineEdit*>(focusWidget()); edit && edit->hasSelectedText())
    return edit->copy();
  log_->CmdCopyLog_Click();
}

void FrmPrinter::ShareHeight() {
  layout()->activate();
  const QWidget* group = log_->parentWidget();
  const int log =
      log_->HeightFor(kFirstRows) + group->sizeHint().height() - log_->sizeHint().height();
  const int all = halves_->height() - halves_->handleWidth();
  halves_->setSizes({all - log, log});
}

void FrmPrinter::Remember() {
  if (settings_ == nullptr) return;
  settings_->setValue("geometry", saveGeometry());
  settings_->setValue("halves", halves_->saveState());
  settings_->setValue("sides", sides_->saveState());
  settings_->setValue("columns", log_->Columns()->saveState());
}

bool FrmPrinter::Recall() {
  if (settings_ == nullptr || !restoreGeometry(settings_->value("geometry").toByteArray()))
    return false;
  sides_->restoreState(settings_->value("sides").toByteArray());
  log_->Columns()->restoreState(settings_->value("columns").toByteArray());
  return halves_->restoreState(settings_->value("halves").toByteArray());
}

void FrmPrinter::TellDevice() {
  const std::string device = server_.DevicePath();
  log_->SetEmptyText(
      device.empty()
          ? tr("Nothing on the line: the printer is unplugged. \"Plug in\" "
               "stands on the page Printer.")
          : tr("Nothing on the line yet. A console opens %1.").arg(QString::fromStdString(device)));
}

void FrmPrinter::Refresh() {
  open_deck_->setEnabled(model_.State().place == CardPlace::kOutside);
  state_bar_->Refresh();
  card_page_->Refresh();
  tracks_page_->Refresh();
  buffer_page_->Refresh();
  printer_page_->Refresh();
  fault_page_->Refresh();
  face_side_->Refresh();
}

}  // namespace vantrel::printer
