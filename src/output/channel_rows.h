#pragma once
// The channel lines of a whole grid, row after row, as the file holds them.

#include <QByteArray>
#include <memory>

namespace gui {
class GridModel;
}

namespace output {

// A large channel table is a few kinds of rows (the presets, "add default") repeated at other
// offsets. The encoder keeps the bytes of the rows it wrote by their cells other than the two
// offsets, and writes a row it has seen before by copying those bytes around its offsets.
class ChannelRowsEncoder {
  public:
    explicit ChannelRowsEncoder(const gui::GridModel& grid);
    ~ChannelRowsEncoder();
    ChannelRowsEncoder(const ChannelRowsEncoder&) = delete;
    ChannelRowsEncoder& operator=(const ChannelRowsEncoder&) = delete;

    // The lines of `row` as AppendChannelRowBytes gives them, into `out` from index `at` on;
    // `out` is made larger where it lacks room, never smaller. Gives the index behind them,
    // or `at` when the row writes no line.
    qsizetype Write(int row, QByteArray& out, qsizetype at);

  private:
    struct KnownKinds;
    const gui::GridModel& grid_;
    std::unique_ptr<KnownKinds> known_;
};

}  // namespace output
