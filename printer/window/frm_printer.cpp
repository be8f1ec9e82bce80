#include "printer/window/frm_printer.h"

#include "dialogs/file_chooser.h"
#include "log/log_panel.h"
#include "printer/model/printer_model.h"
#include "printer/service/line_recording.h"
#include "printer/service/printer_server.h"
#include "printer/window/card_page.h"
#include "printer/window/face_side.h"
#include "printer/window/fault_page.h"
#include "printer/window/printer_page.h"
#include "printer/window/state_bar.h"
#include "printer/window/tracks_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace vantrel::printer {
namespace {

constexpr int kMargin = 12;

}  // namespace

FrmPrinter::FrmPrinter(PrinterModel& model, PrinterServer& server, dialogs::FileChooser& files,
                       QWidget* parent)
    : QWidget(parent) {
  setObjectName("FrmPrinter");
  setWindowTitle(tr("Software card printer"));
  // The key Tab follows the order in which these are made.
  auto* pages = new QTabWidget(this);
  pages->setObjectName("TabPages");
  card_page_ = new CardPage(model, server, this);
  pages->addTab(card_page_, tr("&Card"));
  tracks_page_ = new TracksPage(model, this);
  pages->addTab(tracks_page_, tr("&Tracks and buffers"));
  printer_page_ = new PrinterPage(model, server, this);
  pages->addTab(printer_page_, tr("Print&er"));
  fault_page_ = new FaultPage(model, this);
  pages->addTab(fault_page_, tr("Fa&ults"));
  auto* top = new QWidget(this);
  auto* sides = new QHBoxLayout(top);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->setSpacing(kMargin);
  face_side_ = new FaceSide(model, files, this);
  sides->addWidget(face_side_, 3);
  sides->addWidget(pages, 2);
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
  state_bar_ = new StateBar(model, server, this);
  layout->addWidget(state_bar_);
  layout->addWidget(halves, 1);

  connect(face_side_, &FaceSide::Told, log_, &log::LogPanel::Tell);
  connect(&server, &PrinterServer::Changed, this, &FrmPrinter::Refresh);
  RecordLineOf(server, recorder_);
  resize(1024, 700);
}

void FrmPrinter::ShowMissingFonts(const QStringList& fonts) { face_side_->ShowMissingFonts(fonts); }

QWidget* FrmPrinter::MakeLog(dialogs::FileChooser& files) {
  auto* group = new QGroupBox(tr("Line"), this);
  log_ = new log::LogPanel(recorder_, files, group);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(8, 4, 8, 8);
  layout->addWidget(log_);
  return group;
}

void FrmPrinter::Refresh() {
  state_bar_->Refresh();
  card_page_->Refresh();
  tracks_page_->Refresh();
  printer_page_->Refresh();
  fault_page_->Refresh();
  face_side_->Refresh();
}

}  // namespace vantrel::printer
