#pragma once
// The comment at the top of the fixture file: the text of `morecomment`, one "; " line per
// line of the box.

#include <QString>
#include <QStringList>

// The comment lines without their line ends. A line is cut behind each CR, which stays in
// the line (so it ends in CR CR LF on disk), and the character behind the CR, the LF of
// the box's line end, is dropped unseen. A CR as the very last character ends its line and
// the split. Always at least one line.
QStringList CommentLines(const QString& comment);
