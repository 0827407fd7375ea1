#pragma once
// The lines of a fixture file's DMX section, read back into the rows of the channel grid.
// A 16-bit channel takes two lines: its own and, behind it, the line of its low byte,
// which starts with "0 0 " and repeats everything behind the offset.

#include <QList>
#include <QString>
#include <QStringList>

namespace input {

inline constexpr int kChannelCells = 15;  // column 0, the line mark, to 14, the comment
inline constexpr int kMaxChannelRows = 32767;

// One channel line split into its fields, as written.
struct ChannelLine {
    QString key, wheel, letter, offset;
    QString tail;  // everything behind the offset: the part a low byte line repeats
    QString ratio, curveAndInv, attribute, label, locate, highlight, lowlight, comment;
};

// Splits one channel line. The reason when it is no channel line, empty on success.
QString ParseChannelLine(const QString& text, ChannelLine& line);

// Collects the rows of the channel grid from the lines of the DMX section, in order.
class ChannelRows {
  public:
    // Takes the next line (`number` counts the lines of the file from 1). The reason when
    // the line cannot be read, empty when it was taken.
    QString add(const QString& text, int number);
    // After the last line: the reason when a 16-bit channel still waits for its low byte.
    QString finish() const;

    // The cells of each row, column 0 to 14.
    const QList<QStringList>& rows() const { return rows_; }

  private:
    QList<QStringList> rows_;
    ChannelLine waiting_;  // the line of the last row while a low byte line may follow it
    int waitingNumber_ = 0;
    bool mayPair_ = false;
};

}  // namespace input
