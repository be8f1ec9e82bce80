// SPDX-License-Identifier: MIT

// The lines of a script that deal with cards and what is on them.

#include "printer/model/quoted.h"
#include "printer/service/deck_file.h"
#include "printer/service/picture_file.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_commands.h"
#include "printer/service/script_state.h"
#include "printer/service/script_text.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {
namespace {

using Answer = std::optional<ScriptAnswer>;

ScriptAnswer Ok(std::string text = {}, log::JsonObject members = {}) {
  return ScriptAnswer::Ok(std::move(text), std::move(members));
}

ScriptAnswer Error(std::string text) { return ScriptAnswer::Error(std::move(text)); }

bool IsInside(const ScriptContext& context) {
  return context.model->State().place != CardPlace::kOutside;
}

std::string_view WordOf(CardKind kind) {
  return kind == CardKind::kCleaning ? "cleaning" : "ordinary";
}

// The kind that a word names, ordinary where there is no word; nothing for any other.
std::optional<CardKind> KindIn(std::string_view word) {
  if (word.empty() || word == WordOf(CardKind::kOrdinary)) return CardKind::kOrdinary;
  if (word == WordOf(CardKind::kCleaning)) return CardKind::kCleaning;
  return std::nullopt;
}

constexpr const char* kKinds = "a card is \"ordinary\" or \"cleaning\"";
constexpr const char* kCardIsIn = "there is a card in the printer";

Answer Insert(ScriptContext& context, std::string_view rest) {
  const auto kind = KindIn(rest);
  if (!kind) return Error(kKinds);
  if (IsInside(context)) return Error(kCardIsIn);
  if (!rest.empty()) context.model->SetCardKind(*kind);
  return context.server->InsertCard() ? Ok() : Error("the card cannot be put in now");
}

Answer PullOut(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("pull takes no parameter");
  if (!IsInside(context)) return Error("there is no card in the printer");
  return context.server->PullOutCard() ? Ok() : Error("a command moves the card");
}

Answer WriteTrack(ScriptContext& context, std::string_view rest) {
  // After the number one blank, and then what counts.
  const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
  const auto track = TrackIn(rest.substr(0, end));
  if (!track) return Error("the track is 1, 2 or 3");
  const auto contents = Unescaped(rest.substr(std::min(end + 1, rest.size())));
  if (!contents) return Error("after a backslash comes x and two hex digits, or a backslash");
  const std::size_t length = kTrackLength.at(*track);
  if (contents->size() > length)
    return Error("the track holds " + std::to_string(length) + " bytes");
  if (!IsRecordable(*contents)) return Error("a track holds 01h and 04h to 7Eh alone");
  context.model->SetTrack(*track, *contents);
  return Ok();
}

Answer ReadTrack(ScriptContext& context, std::string_view rest) {
  const auto track = TrackIn(rest);
  if (!track) return Error("read takes \"track\" and 1, 2 or 3");
  const std::string text = Escaped(context.model->State().card.tracks.at(*track));
  return Ok(text, log::JsonObject().Add("text", text));
}

Answer TellTracks(const char* name, const TrackTexts& tracks, std::string_view rest) {
  if (!rest.empty()) return Error(std::string(name) + " takes no parameter");
  return Ok(TracksInWords(tracks), log::JsonObject().Add(name, TracksInJson(tracks)));
}

Answer TellPresets(ScriptContext& context, std::string_view rest) {
  return TellTracks("presets", context.model->State().presets, rest);
}

Answer TellBuffers(ScriptContext& context, std::string_view rest) {
  return TellTracks("buffers", context.model->State().buffers, rest);
}

Answer NewCard(ScriptContext& context, std::string_view rest) {
  const auto kind = KindIn(rest);
  if (!kind) return Error(kKinds);
  if (IsInside(context)) return Error(kCardIsIn);
  if (context.deck.IsFull())
    return Error("the deck holds no more than " + std::to_string(CardDeck::kMostCards) + " cards");
  context.model->ChangeCard(context.deck.Make(context.model->State().card));
  context.model->SetCardKind(*kind);
  const std::size_t index = context.deck.Current();
  return Ok(std::to_string(index + 1), log::JsonObject()
                                           .Add("number", static_cast<long>(index + 1))
                                           .Add("name", context.deck.Name(index)));
}

Answer ChooseCard(ScriptContext& context, std::string_view rest) {
  const auto number = NumberIn(rest);
  const std::size_t size = context.deck.Size();
  if (!number || *number < 1 || static_cast<std::size_t>(*number) > size)
    return Error("card choose takes the number of a card, 1 to " + std::to_string(size));
  if (IsInside(context)) return Error(kCardIsIn);
  const auto index = static_cast<std::size_t>(*number - 1);
  if (index != context.deck.Current())
    context.model->ChangeCard(context.deck.Choose(index, context.model->State().card));
  return Ok();
}

Answer ListCards(ScriptContext& context, std::string_view rest) {
  if (!rest.empty()) return Error("card list takes no parameter");
  const DeckContents deck = context.deck.Contents(context.model->State().card);
  std::string text;
  std::vector<log::JsonObject> cards;
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    const auto& [name, card] = deck.cards[i];
    const bool chosen = i == deck.current;
    if (i > 0) text += "; ";
    text += std::to_string(i + 1) + ' ' + Quoted(name) + ' ';
    text += WordOf(card.kind);
    if (chosen) text += ", chosen";
    cards.push_back(log::JsonObject()
                        .Add("number", static_cast<long>(i + 1))
                        .Add("name", name)
                        .Add("kind", WordOf(card.kind))
                        .Add("chosen", std::optional(chosen)));
  }
  return Ok(text, log::JsonObject().Add("cards", cards));
}

Answer SaveCards(ScriptContext& context, std::string_view rest) {
  const auto path = PathIn(rest);
  if (!path) return Error("deck save takes a path");
  const std::string error = SaveDeck(context.deck.Contents(context.model->State().card), *path);
  return error.empty() ? Ok() : ScriptAnswer::PathError(*path, error);
}

Answer OpenCards(ScriptContext& context, std::string_view rest) {
  const auto path = PathIn(rest);
  if (!path) return Error("deck open takes a path");
  if (IsInside(context)) return Error(kCardIsIn);
  try {
    context.model->ChangeCard(context.deck.Replace(OpenDeck(*path)));
  } catch (const std::runtime_error& error) {
    return ScriptAnswer::PathError(*path, error.what());
  }
  return Ok();
}

Answer SaveDots(const char* word, const Bitmap& dots, std::string_view rest) {
  const auto path = PathIn(rest);
  const bool png = path && path->ends_with(".png");
  if (!png && !(path && path->ends_with(".pbm")))
    return Error(std::string(word) + " takes a path that ends in .png or .pbm");
  const std::string error =
      SavePicture(dots, png ? PictureFormat::kPng : PictureFormat::kPortableBitmap, *path);
  return error.empty() ? Ok() : ScriptAnswer::PathError(*path, error);
}

Answer SaveFace(ScriptContext& context, std::string_view rest) {
  return SaveDots("face", context.model->State().card.face, rest);
}

Answer SaveBuffer(ScriptContext& context, std::string_view rest) {
  return SaveDots("buffer", context.model->State().print_image, rest);
}

constexpr std::array kCommands{
    ScriptCommand{"insert", Insert},       ScriptCommand{"pull", PullOut},
    ScriptCommand{"track", WriteTrack},    ScriptCommand{"read track", ReadTrack},
    ScriptCommand{"presets", TellPresets}, ScriptCommand{"buffers", TellBuffers},
    ScriptCommand{"card new", NewCard},    ScriptCommand{"card choose", ChooseCard},
    ScriptCommand{"card list", ListCards}, ScriptCommand{"deck save", SaveCards},
    ScriptCommand{"deck open", OpenCards}, ScriptCommand{"face", SaveFace},
    ScriptCommand{"buffer", SaveBuffer},
};

}  // namespace

std::span<const ScriptCommand> CardCommands() { return kCommands; }

}  // namespace vantrel::printer
