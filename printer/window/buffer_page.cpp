// SPDX-License-Identifier: MIT

#include "printer/window/buffer_page.h"

#include "dialogs/guard.h"
#include "printer/model/printer_model.h"
#include "printer/window/dot_image.h"
#include "printer/window/face_view.h"

#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantrel::printer {
namespace {

constexpr QSize kIcon{64, 48};

// The dots in the middle of an icon, as large as whole pixels let them be, on the white of a card.
QIcon IconOf(const Bitmap& dots) {
  QPixmap icon(kIcon);
  icon.fill(Qt::white);
  const QImage image = ImageOf(dots);
  const int times =
      std::min((kIcon.width() - 4) / image.width(), (kIcon.height() - 4) / image.height());
  const QImage shown =
      times >= 1 ? image.scaled(image.size() * times)
                 : image.convertToFormat(QImage::Format_RGB32)
                       .scaled(kIcon - QSize(4, 4), Qt::KeepAspectRatio, Qt::SmoothTransformation);
  QPainter painter(&icon);
  painter.drawImage((kIcon.width() - shown.width()) / 2, (kIcon.height() - shown.height()) / 2,
                    shown);
  painter.setPen(QColor(0x6b, 0x75, 0x85));
  painter.drawRect(0, 0, kIcon.width() - 1, kIcon.height() - 1);
  return icon;
}

QLabel* MakeWords(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  // A text that wraps would ask for the height that the picture likes best.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return label;
}

}  // namespace

using dialogs::GuardedSlot;

BufferPage::BufferPage(const PrinterModel& model, dialogs::Helpers helpers, QWidget* parent)
    : QWidget(parent),
      model_(model),
      helpers_(helpers),
      buffer_(new FaceView(tr("Print expansion buffer"), this)),
      LblBuffer(MakeWords("LblBuffer", this)),
      LblRegistered(MakeWords("LblRegistered", this)),
      LstRegistered(new QListWidget(this)) {
  buffer_->setObjectName("BufferView");
  LstRegistered->setObjectName("LstRegistered");
  LstRegistered->setAccessibleName(tr("Registered characters and images"));
  LstRegistered->setViewMode(QListView::IconMode);
  LstRegistered->setMovement(QListView::Static);
  LstRegistered->setResizeMode(QListView::Adjust);
  LstRegistered->setIconSize(kIcon);
  LstRegistered->setSpacing(4);
  LstRegistered->setMinimumHeight(kIcon.height() + 3 * fontMetrics().lineSpacing());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(buffer_, 2);
  layout->addWidget(LblBuffer);
  layout->addWidget(LstRegistered, 1);
  layout->addWidget(LblRegistered);
  draw_.setSingleShot(true);
  connect(&draw_, &QTimer::timeout, this, GuardedSlot(helpers_.guard, [this] { Draw(); }));
  Draw();
}

void BufferPage::Refresh() {
  if (!draw_.isActive()) draw_.start(0);
}

void BufferPage::Draw() {
  buffer_->Show(model_.State().print_image);
  const int dots = buffer_->BlackDots();
  LblBuffer->setText(dots == 0
                         ? tr("The print expansion buffer is empty: 41h to 4Eh fill it.")
                         : tr("%L1 black dots: the next print puts them on the card.").arg(dots));
  std::vector<Registered> registered = AllRegistered();
  if (registered != registered_) {
    registered_ = std::move(registered);
    LstRegistered->clear();
    for (const auto& [name, picture] : registered_)
      LstRegistered->addItem(new QListWidgetItem(IconOf(picture), name));
  }
  LstRegistered->setVisible(!registered_.empty());
  LblRegistered->setText(registered_.empty()
                             ? tr("Nothing is registered: 44h, 45h and 4Bh do that.")
                             : tr("Registered: %1.").arg(registered_.size()));
}

std::vector<BufferPage::Registered> BufferPage::AllRegistered() const {
  const PrintRegisters& registers = model_.State().registers;
  std::vector<Registered> all;
  const auto add = [&all](const char* command, std::size_t number,
                          const std::optional<Bitmap>& dots) {
    if (!dots) return;
    all.push_back({tr("%1, number %2\n%3 × %4")
                       .arg(command)
                       .arg(number)
                       .arg(dots->Width())
                       .arg(dots->Height()),
                   *dots});
  };
  for (std::size_t i = 0; i < kRegisters; ++i) add("44h", i, registers.double_byte_characters[i]);
  for (std::size_t i = 0; i < kRegisters; ++i) add("45h", i, registers.single_byte_characters[i]);
  for (std::size_t i = 0; i < kRegisters; ++i) add("4Bh", i, registers.images[i].Picture());
  return all;
}

}  // namespace vantrel::printer
