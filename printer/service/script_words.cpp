// SPDX-License-Identifier: MIT

#include "printer/service/script_words.h"

namespace vantrel::printer {
namespace {

using Where = ScriptLine::Where;

constexpr ScriptLine kLines[] = {
    {"help", "help [LINE]", "Names the lines, or tells of those that begin with the words LINE.",
     Where::kBoth},
    {"insert", "insert [ordinary|cleaning]",
     "Puts the card in, as one of this kind if one is named."},
    {"pull", "pull", "Pulls the card out; an error while a command moves it."},
    {"track", "track N TEXT",
     "Records TEXT on track 1, 2 or 3 of the card, from after the one blank that follows the "
     "number "
     "to the end of the line. \\xHH stands for the byte of these two hex digits, \\\\ for a "
     "backslash. What the track cannot hold is an error and changes nothing."},
    {"read track", "read track N", "Answers with the contents of the track, written as above."},
    {"presets", "presets",
     "Answers with what 35h to 3Dh have loaded for each track, as '1 \"ABC\", 2 none, 3 none'."},
    {"buffers", "buffers",
     "Answers with the track buffers in the same way: what the last pass of a card left in them, "
     "none where no card has passed."},
    {"card new", "card new [ordinary|cleaning]",
     "Makes a blank card, chooses it and answers with its number. An error while a card is in."},
    {"card choose", "card choose N",
     "Takes card number N of the deck, counted from 1, as the one to put in. An error while a card "
     "is in."},
    {"card list", "card list",
     "Tells the cards of the deck: number, name, kind, and which is chosen."},
    {"deck save", "deck save PATH",
     "Saves all cards as JSON: name, kind, tracks (\\xHH stands for a byte that is not printable), "
     "and the face as a PNG in base64."},
    {"deck open", "deck open PATH",
     "Takes the cards of such a file in place of all. An error while a card is in."},
    {"state", "state",
     "Answers with the card, its place, what the printer is doing, LED, buzzer and counters; with "
     "a "
     "capture that is played back, with how far it has come.",
     Where::kBoth},
    {"face", "face PATH",
     "Saves the face of the card as a picture, one pixel a dot: a PNG where PATH ends in .png, a "
     "portable bitmap where it ends in .pbm."},
    {"buffer", "buffer PATH",
     "Saves the print expansion buffer in the same way: what the next print puts on a card."},
    {"log", "log [PATH]",
     "Answers with the number of entries in the log of the line, and saves it as text, as "
     "comma-separated values where PATH ends in .csv, or as a capture where it ends in .pcapng.",
     Where::kBoth},
    {"fault", "fault TEXT",
     "Makes the printer have a fault in place of all that it has, see FAULTS."},
    {"fault add", "fault add TEXT",
     "Makes it have one more, and answers with the number to clear it by."},
    {"fault list", "fault list",
     "Tells the faults to come: number, text, and how many strikes are left where they are "
     "counted."},
    {"fault clear", "fault clear [N]", "Takes away fault number N, or all."},
    {"power", "power on|off", "Switches the printer on or off, see POWER SWITCH."},
    {"unplug", "unplug",
     "Makes the device vanish, as an adapter does that is pulled out. On TCP and a Unix socket the "
     "console is cut off and no other is let in. An error where it has vanished already."},
    {"plug", "plug",
     "Makes a device again after unplug and after the fault 'vanish', and answers with its name, "
     "which most often is another; --link follows. An error where there is one."},
    {"button cleaning", "button cleaning",
     "Presses the cleaning button: the printer does what 52h does and answers nothing. An error "
     "where the button is disabled."},
    {"series", "series ql7|ql8", "Makes it a printer of this series."},
    {"case-parts", "case-parts on|off",
     "Fits the case accessory parts, which close the back, or takes them away."},
    {"speed", "speed BPS", "Lets it talk at BPS bits a second, 50 to 4000000."},
    {"pacing", "pacing on|off",
     "Lets bytes take the time that they need on the line, and speeds matter, or not."},
    {"code-page", "code-page N",
     "Takes the text of 41h to be in this code page: 932, 936, 949, 950 or 1252."},
    {"wait frame", "wait frame [CODE|any] [MS]",
     "Waits until a frame with a good block check has come from the console since the start or "
     "since the frame that an earlier wait answered with, and answers with its meaning. CODE is "
     "the "
     "code of the command to wait for, as two hex digits; frames before it are passed over. MS is "
     "the longest wait in milliseconds, 10000 where it is left out; then the answer is an error. A "
     "number of two digits alone is a code, any other number alone is refused.",
     Where::kBoth},
    {"wait reply", "wait reply [CODE|any] [MS]",
     "Waits until the answer to the last command, or to the last of this code, has left, and "
     "answers with its meaning; at once where it has. 10h and 15h are answers, too. Each answer "
     "satisfies one wait. One that a fault suppresses never comes."},
    {"wait idle", "wait idle [MS]", "Waits until the printer is switched on and does nothing."},
    {"wait card-wait", "wait card-wait [MS]", "Waits until a command waits for a card."},
    {"wait removal-wait", "wait removal-wait [MS]",
     "Waits until a command waits for the removal of a card."},
    {"wait end", "wait end [MS]",
     "With --replay alone: waits until all frames of the capture were played.", Where::kPlayback},
    {"events", "events on|off",
     "With --json alone: tells between answers what happens, see JSON. Off at the start.",
     Where::kBoth},
    {"quit", "quit [STATUS]", "Ends the program with this status, 0 to 255.", Where::kBoth},
};

}  // namespace

std::span<const ScriptLine> ScriptLines() { return kLines; }

}  // namespace vantrel::printer
