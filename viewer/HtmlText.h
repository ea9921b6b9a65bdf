#pragma once

#include <QByteArray>
#include <QString>

/// The few things about a page's source that the browser does not tell.
namespace HtmlText {

/// A page's bytes as text, by the encoding that the page declares, else UTF-8 or Latin-1.
QString decode(const QByteArray& page);

/// What stands between <title> and </title>, or an empty text.
QString title(const QString& html);

/// The words of a page, without its tags.
QString words(const QString& html);

/// The value of an attribute among a tag's attributes, its character references replaced.
QString attribute(const QString& attributes, const QString& name);

/// True for pages whose tables, lists and blocks lie deeper in each other than any page needs:
/// laying such a page out would use up the stack.
bool nestedTooDeeply(const QString& html);

}  // namespace HtmlText
