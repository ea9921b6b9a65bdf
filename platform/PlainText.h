#pragma once

#include <QString>

/// Texts of unknown origin (file names, titles in files) on their way to the screen.
///
/// A widget that can be told so shows plain text (Qt::PlainText), and gets plain(). Only places
/// that always take rich text, such as tool tips, get escaped(). Neither is for keys, captions or
/// texts of the program's own.
namespace PlainText {

/// The text with what would act unseen written out: control characters, line and paragraph ends,
/// the marks, embeddings, overrides and isolates that turn the direction of writing (UAX #9,
/// section 2), and halves of surrogate pairs become "\u" and four hexadecimal digits, such as
/// "\u000A".
QString plain(const QString& text);

/// The text with a place to break, which takes no room, in every word of more than 60 characters:
/// for widgets that would else be as wide as such a word, or cut it.
QString breakable(const QString& text);

/// plain(text) as rich text that shows it character for character. It is breakable(), and past 1000
/// characters the text ends in an ellipsis.
QString escaped(const QString& text);

}  // namespace PlainText
