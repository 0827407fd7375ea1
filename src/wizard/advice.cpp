#include "wizard/advice.h"

#include <QSet>
#include <optional>
#include <vector>

#include "common/number.h"
#include "output/channel_line.h"
#include "output/form_fixture.h"
#include "wizard/main_form.h"

namespace {

using namespace common;  // the columns of the channel grid and the kinds of channel

bool WholeWithin(const QString& text, int low, int high) {
    const std::optional<double> v = common::WholeNumber(text.trimmed());
    return v && *v == common::RoundHalfEven(*v) && *v >= low && *v <= high;
}

bool NumberWithin(const QString& text, double low, double high) {
    const double v = common::LeadingNumber(text);
    return v >= low && v <= high;
}

long Offset(const QString& text) {
    return static_cast<long>(common::RoundHalfEven(common::LeadingNumber(text)));
}

QString CheckGeneralData(const Fixture& f) {
    if (f.manufacturer.trimmed().isEmpty()) return QStringLiteral("Manifacturer cannot be empty!");
    if (f.model.trimmed().isEmpty()) return QStringLiteral("Model cannot be empty!");
    if (f.nameOnDesk.isEmpty() || f.nameOnDesk.contains(u' '))
        return QStringLiteral("Name on desk cannot contain spaces or be empty!");
    if (f.type == FixtureType::kNone) return QStringLiteral("Please choose type of fixture!");
    if (f.type != FixtureType::kOther) {
        if (!WholeWithin(f.pan, 1, 719)) return QStringLiteral("Pan degrees must be 1 to 719!");
        if (!WholeWithin(f.tilt, 1, 359)) return QStringLiteral("Tilt degrees must be 1 to 359!");
    }
    return {};
}

// Walks the rows that reach the file; fills `used` with the offsets they take.
// The offsets the rows take: nearly all lie within 16 bits, so those are marked in a map of
// bits and only the rest goes to a set.
class Offsets {
  public:
    bool contains(long offset) const {
        return Near(offset) ? near_[offset + kBias] : far_.contains(offset);
    }
    void insert(long offset) {
        if (Near(offset))
            near_[offset + kBias] = true;
        else
            far_.insert(offset);
    }

  private:
    static constexpr long kBias = 32768;
    static bool Near(long offset) { return offset >= -kBias && offset < kBias; }
    std::vector<bool> near_ = std::vector<bool>(2 * kBias);
    QSet<long> far_;
};

QString CheckChannels(const TextTable& t, Offsets& used) {
    bool htpSeen = false;
    bool keyTaken[21][2] = {};  // by key, 1 to 20, and wheel, A or B
    for (int row = 0; row < t.rows(); ++row) {
        const std::optional<double> dmx2 = common::WholeNumber(t.cell(row, kDmx2));
        if (!dmx2) continue;                                         // this row writes no line
        const auto at = [row] { return QString::number(row + 1); };  // the grid line, from 1
        const long high = Offset(t.cell(row, kDmx1));
        const long low = static_cast<long>(common::RoundHalfEven(*dmx2));
        if (high == 0) return QStringLiteral("DMX cannot be zero! Maybe one unused row to delete?");
        if (used.contains(high) || (low > 0 && (used.contains(low) || low == high)))
            return QStringLiteral("DMX channel duplicated at line ") + at();
        used.insert(high);
        if (low > 0) used.insert(low);

        const ChannelKind kind = KindOf(t.cell(row, kChannelType));
        if (kind == ChannelKind::kOther)
            return QStringLiteral("Invalid Channel Type at line ") + at();
        if (kind == ChannelKind::kHtp) {
            if (htpSeen)
                return QStringLiteral(
                           "There may be only 1 HTP channel! There is a second at line ") +
                       at();
            htpSeen = true;
            if (low > 0)
                return QStringLiteral(
                           "An HTP channel cannot be 16 bit i.e. a 16 bit channel cannot be HTP, "
                           "line ") +
                       at();
        }
        const QString wheel = LeadingToken(t.cell(row, kWheel));
        if (wheel != u"1" && wheel != u"61")
            return QStringLiteral("Wheel must be 1 (A) or 61 (B) at line ") + at();
        const QString& key = t.cell(row, kKey);
        if (!NumberWithin(key, 1, 20))
            return QStringLiteral("Key ID out of bounds (1-20) at line ") + at();
        bool& taken = keyTaken[Offset(key)][wheel == u"61"];
        if (taken) return QStringLiteral("Key assignament duplicated at line ") + at();
        taken = true;
        if (!NumberWithin(t.cell(row, kRatio), 1, 100))
            return QStringLiteral("Ratio % value out of bounds (1-100) at line ") + at();
        if (!NumberWithin(t.cell(row, kLocate), 0, 255))
            return QStringLiteral("Locate value out of bounds (0-255) at line ") + at();
        if (!NumberWithin(t.cell(row, kHighlight), 0, 255))
            return QStringLiteral("Highligt value out of bounds (0-255) at line ") + at();
        if (!NumberWithin(t.cell(row, kLowlight), 0, 255))
            return QStringLiteral("Lolight value out of bounds (0-255) at line ") + at();
    }
    return {};
}

}  // namespace

QString FirstFault(const Fixture& f) {
    if (QString fault = CheckGeneralData(f); !fault.isEmpty()) return fault;
    Offsets used;
    if (QString fault = CheckChannels(f.channels, used); !fault.isEmpty()) return fault;
    const int channelCount = ChannelCount(f.channels);
    for (long offset = 1; offset <= channelCount; ++offset)
        if (!used.contains(offset))
            return QStringLiteral("Unused dmx channel (") + QString::number(offset) +
                   QStringLiteral(") in range!");
    return {};
}

void GiveAdvice(MainForm& f) {
    const Fixture fixture = ReadForm(f);
    f.dmxchannels.setCaption(QString::number(ChannelCount(fixture.channels)));
    f.errormessage[kFinishPage].setCaption(FirstFault(fixture));
}
