// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>
#include <QImage>
#include <QTableView>

#include <algorithm>
#include <cstdlib>

namespace vantrel::log {

// Where the text of a cell stands as it is painted: pixels from each edge of its column.
struct TextPlace {
  int left;
  int right;
};

// Of a picture whose ground is even along each row of pixels, but for a line at either edge.
inline TextPlace PlaceOfText(const QImage& picture) {
  constexpr int kEdge = 2;
  constexpr int kSeen = 60;  // of 255
  const int end = picture.width() - kEdge;
  TextPlace place{picture.width(), picture.width()};
  for (int y = kEdge; y < picture.height() - kEdge; ++y) {
    const int ground = qGray(picture.pixel(end - 1, y));
    for (int x = kEdge; x < end; ++x) {
      if (std::abs(qGray(picture.pixel(x, y)) - ground) < kSeen) continue;
      place.left = std::min(place.left, x);
      place.right = std::min(place.right, picture.width() - 1 - x);
    }
  }
  return place;
}

inline TextPlace PlaceInCell(QTableView& table, int row, int column) {
  const QRect cell = table.visualRect(table.model()->index(row, column));
  return PlaceOfText(table.viewport()->grab(cell).toImage());
}

inline TextPlace PlaceInHeader(QTableView& table, int column) {
  QHeaderView* header = table.horizontalHeader();
  const QRect section(header->sectionViewportPosition(column), 0, header->sectionSize(column),
                      header->height());
  return PlaceOfText(header->viewport()->grab(section).toImage());
}

}  // namespace vantrel::log
