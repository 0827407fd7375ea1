#pragma once
// The lines of a fixture file's DMX section, read back into the rows of the channel grid.
// A 16-bit channel takes two lines: its own and, behind it, the line of its low byte,
// which starts with "0 0 " and repeats everything behind the offset.

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
    // Takes the next line (`number` counts the lines of the file from 1); its text must live
    // as long as this collector. The reason when the line cannot be read, empty when it
    // was taken.
    QString add(QStringView text, int number);
    // After the last line: the reason when a 16-bit channel still waits for its low byte.
    QString finish() const;

    // The cells of each row, column 0 to 14, handed over.
    common::TextTable takeRows() { return std::move(rows_); }
    // The highest offset the rows hold, in dmx1 or dmx2; 0 when none.
    int highestOffset() const { return highest_; }

  private:
    // A line but for its offset: what stands before the offset, and the tail behind it. A long
    // table repeats a few shapes, whose cells need reading once.
    struct Shape {
        std::u16string_view head, tail;
        bool operator==(const Shape&) const = default;
    };
    struct ShapeHash {
        std::size_t operator()(const Shape& s) const {
            const std::hash<std::u16string_view> hash;
            return hash(s.head) * 31 + hash(s.tail);
        }
    };
    std::unordered_map<Shape, std::array<quint32, common::kChannelColumns>, ShapeHash> shapes_;

    common::TextTable rows_{common::kChannelColumns};
    ChannelLine waiting_;  // the line of the last row while a low byte line may follow it
    int waitingNumber_ = 0;
    bool mayPair_ = false;
    int highest_ = 0;
};

}  // namespace input
