// SPDX-License-Identifier: MIT

#include "printer/service/deck_file.h"

#include "log/file_saver.h"
#include "printer/drawing/png_file.h"
#include "printer/service/script_text.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantrel::printer {
namespace {

constexpr const char* kOrdinary = "ordinary";
constexpr const char* kCleaning = "cleaning";

QString FaceInBase64(const Bitmap& face) {
  return QString::fromLatin1(QByteArray::fromStdString(PngOf(face)).toBase64());
}

QJsonObject JsonOf(const NamedCard& named) {
  QJsonArray tracks;
  for (const std::string& track : named.card.tracks)
    tracks.append(QString::fromStdString(Escaped(track)));
  return {{"name", QString::fromStdString(named.name)},
          {"kind", named.card.kind == CardKind::kCleaning ? kCleaning : kOrdinary},
          {"tracks", tracks},
          {"face", FaceInBase64(named.card.face)}};
}

// What is wrong with a file, in a few words.
[[noreturn]] void Refuse(const std::string& words) { throw std::invalid_argument(words); }

QString TextIn(const QJsonObject& object, const char* key) {
  const QJsonValue value = object.value(QLatin1String(key));
  if (!value.isString()) Refuse(std::string("\"") + key + "\" is no text");
  return value.toString();
}

std::string TrackFrom(const QJsonValue& value, std::size_t track) {
  const std::string words = "track " + std::to_string(track + 1);
  const auto contents = value.isString() ? Unescaped(value.toString().toStdString()) : std::nullopt;
  if (!contents) Refuse(words + " is no text with \\xHH and \\\\ in it");
  if (contents->size() > kTrackLength.at(track))
    Refuse(words + " holds more than " + std::to_string(kTrackLength.at(track)) + " bytes");
  if (!IsRecordable(*contents)) Refuse(words + " holds other bytes than 01h and 04h to 7Eh");
  return *contents;
}

Bitmap FaceFrom(const QString& text) {
  const auto bytes =
      QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
  const std::string file = bytes ? (*bytes).toStdString() : std::string();
  const auto size = SizeOfPng(file);
  if (size && (size->width != kFaceWidth || size->height != kFaceHeight)) {
    Refuse("\"face\" is " + std::to_string(size->width) + " by " + std::to_string(size->height) +
           " dots, not " + std::to_string(kFaceWidth) + " by " + std::to_string(kFaceHeight));
  }
  const auto dots = size ? DotsOfPng(file) : std::nullopt;
  if (!dots) Refuse("\"face\" is no PNG in base64");
  return *dots;
}

NamedCard CardFrom(const QJsonValue& value) {
  if (!value.isObject()) Refuse("is no object");
  const QJsonObject object = value.toObject();
  NamedCard named;
  named.name = TextIn(object, "name").toStdString();
  if (named.name.empty()) Refuse("\"name\" is empty");
  const QString kind = TextIn(object, "kind");
  if (kind != QLatin1String(kOrdinary) && kind != QLatin1String(kCleaning))
    Refuse("\"kind\" is neither \"ordinary\" nor \"cleaning\"");
  named.card.kind = kind == QLatin1String(kCleaning) ? CardKind::kCleaning : CardKind::kOrdinary;
  const QJsonArray tracks = object.value(QLatin1String("tracks")).toArray();
  if (tracks.size() != static_cast<qsizetype>(kTracks)) Refuse("\"tracks\" are not three texts");
  for (std::size_t i = 0; i < kTracks; ++i)
    named.card.tracks.at(i) = TrackFrom(tracks.at(static_cast<qsizetype>(i)), i);
  named.card.face = FaceFrom(TextIn(object, "face"));
  return named;
}

DeckContents DeckFrom(const QByteArray& bytes) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
  if (document.isNull()) {
    Refuse("it is no JSON (" + error.errorString().toStdString() + ", byte " +
           std::to_string(error.offset) + ")");
  }
  const QJsonArray cards = document.object().value(QLatin1String("cards")).toArray();
  if (cards.isEmpty()) Refuse("it has no \"cards\"");
  if (cards.size() > static_cast<qsizetype>(CardDeck::kMostCards))
    Refuse("it has more than " + std::to_string(CardDeck::kMostCards) + " cards");
  DeckContents deck;
  for (qsizetype i = 0; i < cards.size(); ++i) {
    try {
      deck.cards.push_back(CardFrom(cards.at(i)));
    } catch (const std::invalid_argument& wrong) {
      Refuse("card " + std::to_string(i + 1) + ": " + wrong.what());
    }
  }
  const QJsonValue current = document.object().value(QLatin1String("current"));
  const qint64 number = current.isUndefined() ? 1 : current.toInteger(0);
  if (number < 1 || number > cards.size()) Refuse("\"current\" is the number of none of its cards");
  deck.current = static_cast<std::size_t>(number - 1);
  return deck;
}

QByteArray BytesOfFile(const std::string& path) {
  std::error_code error;
  const auto there = std::filesystem::status(path, error);
  std::string reason;
  if (error)
    reason = error.message();
  else if (!std::filesystem::is_regular_file(there))
    reason = "It is no regular file";
  else if (std::filesystem::file_size(path, error) > kMostDeckBytes)
    reason = "It is larger than 16 MB";
  std::ifstream file;
  if (reason.empty()) {
    file.open(path, std::ios::binary);
    if (!file) reason = std::strerror(errno);
  }
  if (!reason.empty()) throw std::runtime_error(path + " was not opened: " + reason + '.');
  return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
}

}  // namespace

std::string SaveDeck(const DeckContents& deck, const std::string& path) {
  QJsonArray cards;
  for (const NamedCard& named : deck.cards) cards.append(JsonOf(named));
  const QJsonObject whole{{"current", static_cast<qint64>(deck.current + 1)}, {"cards", cards}};
  return log::ReplaceFile(path, QJsonDocument(whole).toJson().toStdString());
}

DeckContents OpenDeck(const std::string& path) {
  const QByteArray bytes = BytesOfFile(path);
  try {
    return DeckFrom(bytes);
  } catch (const std::invalid_argument& wrong) {
    throw std::runtime_error(path + " is no deck of cards: " + wrong.what() + '.');
  }
}

}  // namespace vantrel::printer
