#pragma once
// The lines of a fixture file's DMX section, read back into the rows of the channel grid.
// A 16-bit channel takes two lines: its own and, behind it, the line of its low byte,
// which starts with "0 0 " and repeats everything behind the offset.

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <array>
#include <string_view>
#include <unordered_map>

#include "common/channel_grid.h"
#include "common/text_table.h"

namespace input {

// One channel line split into its fields, as written: views into the line's text.
struct ChannelLine {
    QStringView key, wheel, letter, offset;
    QStringView tail;  // everything behind the offset: the part a low byte line repeats
    QStringView ratio, curve, inv, attribute, label, locate, highlight, lowlight, comment;
};

// Splits one channel line, each field checked for the form the writer gives it. The reason
// when it is no channel line, empty on success; `line` then views into `text`.
QString ParseChannelLine(QStringView text, ChannelLine& line);

// Collects the rows of the channel grid from the lines of the DMX section, in order.
class ChannelRows {
  public:
    // Takes the bytes of the next line as the file holds them (`number` counts the lines of
    // the file from 1); they must live as long as this collector. The reason when the line
    // cannot be read, empty when it was taken.
    QString add(QByteArrayView bytes, int number);
    // After the last line: the reason when a 16-bit channel still waits for its low byte.
    QString finish() const;

    // The cells of each row, column 0 to 14, handed over.
    common::TextTable takeRows() { return std::move(rows_); }
    // The highest offset the rows hold, in dmx1 or dmx2; 0 when none.
    int highestOffset() const { return highest_; }

  private:
    // What a line says but for its offset. A long table repeats a few shapes of line, and a
    // line of a shape seen before is read by its offset alone.
    struct Shape {
        std::array<quint32, common::kChannelColumns> cells;  // the numbers of the cells' texts
        char letter = 0;                                     // the type letter, 0 for none
        bool zeroKeyWheel = false;  // key and wheel are "0", as on a low byte line
    };
    // The bytes before the offset and behind it.
    struct ShapeKey {
        std::string_view head, tail;
        bool operator==(const ShapeKey&) const = default;
    };
    struct ShapeHash {
        std::size_t operator()(const ShapeKey& key) const {
            const std::hash<std::string_view> hash;
            return hash(key.head) * 31 + hash(key.tail);
        }
    };
    std::unordered_map<ShapeKey, Shape, ShapeHash> shapes_;

    // A new shape from the fields of its first line, its cells' texts taken into the table.
    Shape shapeOf(const ChannelLine& line);

    common::TextTable rows_{common::kChannelColumns};
    // The last row while a low byte line may follow it: its letter, the bytes behind its
    // offset and its line number.
    char waitingLetter_ = 0;
    std::string_view waitingTail_;
    int waitingNumber_ = 0;
    bool mayPair_ = false;
    int highest_ = 0;
};

}  // namespace input
