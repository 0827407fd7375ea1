#include "input/qxf_mapping.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <map>

#include "common/channel_presets.h"
#include "common/code_page.h"
#include "input/channel_lines.h"

namespace input {
namespace {

// For a kind that a preset resembles, the preset its first channel takes: index and row as
// the preset panel numbers them. No preset has index -1.
struct PresetRef {
    int index = -1;
    int row = 0;  // for the three rows of the colour mixes
};

// What a channel controls, as far as a row of the grid can tell it apart. The first channels
// of a kind take the kind's presets in turn (colour, then color2); a kind no preset covers
// gives its name as the label of its first row.
struct Kind {
    const char* name;
    std::array<PresetRef, 2> presets = {};

    int presetCount() const { return (presets[0].index >= 0) + (presets[1].index >= 0); }
};

constexpr Kind kPan{"Pan", {{{0}}}}, kTilt{"Tilt", {{{2}}}}, kColour{"Colour", {{{4}, {5}}}},
    kCyan{"Cyan", {{{6, 0}}}}, kMagenta{"Magenta", {{{6, 1}}}}, kYellow{"Yellow", {{{6, 2}}}},
    kRed{"Red", {{{7, 0}}}}, kGreen{"Green", {{{7, 1}}}}, kBlue{"Blue", {{{7, 2}}}},
    kCto{"CTO", {{{8}}}}, kIris{"Iris", {{{9}}}}, kFocus{"Focus", {{{10}}}},
    kZoom{"Zoom", {{{11}}}}, kDimmer{"Dimmer", {{{12}}}}, kShutter{"Shutter", {{{13}}}},
    kGobo{"Gobo", {{{14}, {15}}}}, kGoboRotation{"Gobo rot", {{{16}, {17}}}},
    kSpeed{"Speed", {{{18}}}}, kEffect{"Effect", {{{19}}}}, kControl{"Control", {{{20}}}},
    kPrism{"Prism", {{{21}}}}, kPrismRotation{"Prism rot", {{{22}}}}, kFrost{"Frost", {{{23}}}},
    kMacro{"Macro", {{{24}}}};
constexpr Kind kWhite{"White"}, kAmber{"Amber"}, kUv{"UV"}, kLime{"Lime"}, kIndigo{"Indigo"},
    kHue{"Hue"}, kSaturation{"Saturation"}, kValue{"Value"}, kLightness{"Lightness"}, kCtc{"CTC"},
    kRgbMixer{"RGB mixer"}, kOtherSpeed{"Speed"}, kOtherBeam{"Beam"}, kOther{"Other"},
    kNothing{"Not used"};

// The kinds of intensity that an old channel names by its Colour child, and the newer
// presets name after "Intensity".
const Kind* ColourKind(QStringView colour) {
    for (const Kind* kind : {&kRed, &kGreen, &kBlue, &kCyan, &kMagenta, &kYellow, &kWhite, &kAmber,
                             &kUv, &kLime, &kIndigo, &kHue, &kSaturation, &kValue, &kLightness})
        if (colour == QLatin1String(kind->name)) return kind;
    return &kOther;
}

struct Classified {
    const Kind* kind = &kOther;
    bool master = false;  // a master dimmer
};

bool NameHas(const QString& name, std::initializer_list<const char*> words) {
    for (const char* word : words)
        if (name.contains(QLatin1String(word), Qt::CaseInsensitive)) return true;
    return false;
}

Classified ByPreset(QString preset) {
    if (preset.endsWith(u"Fine")) preset.chop(4);
    auto starts = [&](const char* head) { return preset.startsWith(QLatin1String(head)); };
    if (starts("PositionPan") || starts("PositionXAxis")) return {&kPan};
    if (starts("PositionTilt") || starts("PositionYAxis")) return {&kTilt};
    if (starts("IntensityMasterDimmer")) return {&kDimmer, true};
    if (starts("IntensityDimmer")) return {&kDimmer};
    if (starts("Intensity")) return {ColourKind(QStringView(preset).sliced(9))};
    if (starts("ColorCTOMixer")) return {&kCto};
    if (starts("ColorCTCMixer")) return {&kCtc};
    if (starts("ColorRGBMixer")) return {&kRgbMixer};
    if (starts("Color")) return {&kColour};
    if (starts("GoboIndex")) return {&kGoboRotation};
    if (starts("Gobo")) return {&kGobo};
    if (starts("SpeedPan") || starts("SpeedTilt")) return {&kSpeed};
    if (starts("Speed")) return {&kOtherSpeed};
    if (starts("ShutterIris")) return {&kIris};
    if (starts("Shutter")) return {&kShutter};
    if (starts("BeamFocus")) return {&kFocus};
    if (starts("BeamZoom")) return {&kZoom};
    if (starts("Beam")) return {&kOtherBeam};
    if (starts("PrismRotation")) return {&kPrismRotation};
    if (starts("Prism")) return {&kPrism};
    if (starts("NoFunction")) return {&kNothing};
    return {&kOther};
}

Classified ByGroup(const QxfChannel& channel) {
    const QString& group = channel.group;
    const QString& name = channel.name;
    if (group == u"Intensity") {
        if (!channel.colour.isEmpty()) return {ColourKind(channel.colour)};
        return {&kDimmer, NameHas(name, {"master"})};
    }
    if (group == u"Colour") return {NameHas(name, {"cto", "temperature"}) ? &kCto : &kColour};
    if (group == u"Gobo")
        return {NameHas(name, {"rot", "index", "spin"}) ? &kGoboRotation : &kGobo};
    if (group == u"Pan") return {&kPan};
    if (group == u"Tilt") return {&kTilt};
    if (group == u"Speed") return {NameHas(name, {"pan", "tilt", "p/t"}) ? &kSpeed : &kOtherSpeed};
    if (group == u"Shutter") return {NameHas(name, {"iris"}) ? &kIris : &kShutter};
    if (group == u"Prism") return {NameHas(name, {"rot"}) ? &kPrismRotation : &kPrism};
    if (group == u"Beam") {
        if (NameHas(name, {"frost", "diffus"})) return {&kFrost};
        if (NameHas(name, {"focus"})) return {&kFocus};
        if (NameHas(name, {"zoom"})) return {&kZoom};
        if (NameHas(name, {"iris"})) return {&kIris};
        return {&kOtherBeam};
    }
    if (group == u"Effect") {
        if (NameHas(name, {"frost", "diffus"})) return {&kFrost};
        if (NameHas(name, {"macro", "program", "auto", "show", "sound"})) return {&kMacro};
        return {&kEffect};
    }
    if (group == u"Maintenance") return {&kControl};
    if (group == u"Nothing") return {&kNothing};
    return {&kOther};
}

Classified Classify(const QxfChannel& channel) {
    return channel.preset.isEmpty() ? ByGroup(channel) : ByPreset(channel.preset);
}

// One channel of the mode, classified.
struct ModeChannel {
    const QxfChannel* source;
    const Kind* kind;
    bool master;
    bool fine;
    int head;
    int offset;  // dmx1 of its row, or dmx2 of a fine channel folded into a coarse one
};

// One row of the grid under construction.
struct Row {
    int channel;              // the mode position of its (coarse) channel
    int fine = -1;            // the mode position of its low byte, -1 for an 8-bit row
    bool htp = false;         // the one HTP row
    bool dimmerFine = false;  // the low byte of the HTP dimmer, on a row of its own
    int occurrence = 0;       // how many rows of its kind stand before it (the HTP dimmer first)
    int key = 0;
    int wheel = 0;
};

// The cells a preset writes from its channel type on: the channel type, then the fields of
// its tail (attribute type, key, wheel, label, curve, inv, ratio, locate, highlight,
// lowlight, comment).
struct PresetCells {
    QString channelType;
    QStringList tail;
};

// The preset rows split into their cells once, by index and row, as the panel numbers them.
const PresetCells& CellsOf(const PresetRef& ref) {
    static const QList<QList<PresetCells>> kCells = [] {
        QList<QList<PresetCells>> cells(common::kPresetCount);
        for (const common::PresetRow& preset : common::PresetRows())
            cells[preset.index].append({QString::fromLatin1(preset.channelType),
                                        QString::fromLatin1(preset.tail).split(u';').mid(1)});
        return cells;
    }();
    return kCells[ref.index][ref.row];
}

// The slots of key and wheel: first those no preset uses, then the presets' own.
struct Slot {
    int key;
    int wheel;
    bool operator==(const Slot&) const = default;
};

const QList<Slot>& SlotOrder() {
    static const QList<Slot> kOrder = [] {
        QList<Slot> order = {{1, 61}};
        for (int key = 11; key <= 15; ++key) order << Slot{key, 1} << Slot{key, 61};
        order << Slot{16, 1} << Slot{18, 1} << Slot{19, 1} << Slot{20, 1} << Slot{20, 61};
        for (const common::PresetRow& preset : common::PresetRows()) {
            const QStringList tail = QString::fromLatin1(preset.tail).split(u';');
            const Slot slot{tail[2].toInt(), tail[3].toInt()};
            if (!order.contains(slot)) order << slot;
        }
        return order;
    }();
    return kOrder;
}

// The decimal text of a number of the grid, held here rather than in a string of its own.
class Digits {
  public:
    explicit Digits(int n) {
        qsizetype at = sizeof(text_) / sizeof(text_[0]);
        const bool negative = n < 0;
        unsigned rest = negative ? 0u - unsigned(n) : unsigned(n);
        do {
            text_[--at] = char16_t(u'0' + rest % 10);
            rest /= 10;
        } while (rest > 0);
        if (negative) text_[--at] = u'-';
        start_ = at;
    }
    operator QStringView() const {
        return QStringView(text_ + start_, qsizetype(sizeof(text_) / sizeof(text_[0])) - start_);
    }

  private:
    char16_t text_[12];
    qsizetype start_;
};

// At most `length` UTF-16 units, never half a surrogate pair.
QString Cut(const QString& text, qsizetype length) {
    QString cut = text.left(length);
    if (!cut.isEmpty() && cut.back().isHighSurrogate()) cut.chop(1);
    return cut;
}

// A channel name as the label of a line: the name without its outer blanks, when what remains
// fits the label's characters in the code page and the line keeps it whole; else nothing.
std::optional<QString> LabelOf(const QString& name) {
    qsizetype start = 0, end = name.size();
    while (start < end && name[start] == u' ') ++start;
    while (end > start && name[end - 1] == u' ') --end;
    const QString label = name.sliced(start, end - start);
    qsizetype characters = 0;
    for (const QChar c : label) {
        if (c.unicode() < 0x20 || c == u'"') return std::nullopt;
        characters += !c.isLowSurrogate();
    }
    if (label.isEmpty() || characters > common::kLabelLength ||
        FromFileBytes(ToFileBytes(label)) != label)
        return std::nullopt;
    return label;
}

QString LettersAndDigits(const QString& text) {
    QString kept;
    for (const QChar c : text.toUpper())
        if ((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')) kept += c;
    return kept;
}

// The coarse channels of one kind and head, in mode order, each paired at most once. A paired
// one links to its neighbour, and every walk over such links shortens them, so that a mode of
// thousands of fine channels pairs them in one pass.
class CoarseChannels {
  public:
    void add(int place) {
        const int at = static_cast<int>(places_.size());
        places_.append(place);
        before_.append(at);
        after_.append(at);
    }

    // The nearest unpaired one before `place`, else the nearest after it, now paired; -1 for
    // none.
    int pairNearest(int place) {
        const int end = static_cast<int>(places_.size());
        if (after_.size() == end) after_.append(end);  // "none after"
        const int at = static_cast<int>(std::lower_bound(places_.cbegin(), places_.cend(), place) -
                                        places_.cbegin());
        int found = at > 0 ? Walk(before_, at - 1) : -1;
        if (found < 0) found = Walk(after_, at);
        if (found == end) return -1;
        before_[found] = found - 1;
        after_[found] = found + 1;
        return places_[found];
    }

  private:
    // From `from` to the first that links to itself, or to -1 for none.
    static int Walk(QList<int>& links, int from) {
        while (from >= 0 && links[from] != from) {
            const int next = links[from];
            if (next >= 0) links[from] = links[next];
            from = next;
        }
        return from;
    }

    QList<int> places_;
    QList<int> before_;  // itself while unpaired, then the one before it (-1 for none)
    QList<int> after_;   // itself while unpaired, then the one after it; last: "none after"
};

class ModeMapper {
  public:
    ModeMapper(const QxfFixture& fixture, int mode)
        : fixture_(fixture), mode_(fixture.modes[mode]), modeIndex_(mode) {}

    ReadOutcome map() {
        if (mode_.channels.isEmpty())
            return {std::nullopt,
                    QStringLiteral("the mode \"%1\" has no channel").arg(OneLine(mode_.name))};
        if (mode_.channels.size() > common::kMaxChannelRows)
            return {std::nullopt,
                    QStringLiteral("the mode \"%1\" has more channels than the table holds")
                        .arg(OneLine(mode_.name))};
        for (int i = 0; i < mode_.channels.size(); ++i) {
            const QString& name = mode_.channels[i];
            const QxfChannel* source = fixture_.channel(name);
            if (!source) {
                return {std::nullopt,
                        QStringLiteral("the mode \"%1\" names the channel \"%2\", which the "
                                       "fixture does not define")
                            .arg(OneLine(mode_.name), OneLine(name))};
            }
            // The Number is the channel's offset from 0, gaps and all: dmx1 = Number + 1.
            const int offset = mode_.numbers.value(i, -1) + 1;
            if (offset < 1) {
                return {std::nullopt,
                        QStringLiteral("the mode \"%1\" gives the channel \"%2\" no Number")
                            .arg(OneLine(mode_.name), OneLine(name))};
            }
            if (offset > common::kHighestOffset) {
                return {std::nullopt,
                        QStringLiteral("the mode \"%1\" puts the channel \"%2\" at DMX offset "
                                       "%3, beyond the %4 offsets of the channel table")
                            .arg(OneLine(mode_.name), OneLine(name))
                            .arg(offset)
                            .arg(common::kHighestOffset)};
            }
            const Classified c = Classify(*source);
            channels_.append(
                {source, c.kind, c.master, source->fine, mode_.heads.value(i, -1), offset});
        }
        chooseHtp();
        buildRows();
        countOccurrences();
        assignSlots();

        common::Fixture file;
        file.manufacturer = Cut(OneLine(fixture_.manufacturer), 30);
        file.model = Cut(OneLine(fixture_.model), 30);
        file.nameOnDesk = QxfNameOnDesk(fixture_, modeIndex_);
        setFixtureType(file);
        file.channels.reserve(static_cast<int>(rows_.size()));
        for (const Row& row : rows_) appendRow(row, file.channels);
        // The mode's name as long as the patch text box takes it.
        const QLatin1String rest(common::kDefaultPatchText);
        file.patchText = OneLine(Cut(mode_.name, common::kMaxPatchTextLength - rest.size())) + rest;
        return {std::move(file), QString()};
    }

  private:
    // Only the master dimmer, or else the first dimmer, is HTP.
    void chooseHtp() {
        for (const bool master : {true, false}) {
            for (int i = 0; i < channels_.size() && htp_ < 0; ++i) {
                const ModeChannel& c = channels_[i];
                if (c.kind == &kDimmer && !c.fine && (c.master || !master)) htp_ = i;
            }
        }
    }

    // A fine channel joins the nearest unpaired coarse channel of its kind and head, before
    // it if there is one, else after it; without a partner it is a row of its own.
    void buildRows() {
        const int count = static_cast<int>(channels_.size());
        QList<int> partner(count, -1);  // for a coarse channel, its fine one
        QList<int> folded(count, -1);   // for a fine channel, the coarse one it joined
        std::map<std::pair<const Kind*, int>, CoarseChannels> coarse;  // by kind and head
        const bool anyFine = std::any_of(channels_.cbegin(), channels_.cend(),
                                         [](const ModeChannel& c) { return c.fine; });
        for (int i = 0; i < count && anyFine; ++i)
            if (!channels_[i].fine) coarse[{channels_[i].kind, channels_[i].head}].add(i);
        for (int i = 0; i < count; ++i) {
            if (!channels_[i].fine) continue;
            const auto group = coarse.find({channels_[i].kind, channels_[i].head});
            const int found = group == coarse.end() ? -1 : group->second.pairNearest(i);
            if (found < 0) continue;
            partner[found] = i;
            // The HTP dimmer stays 8-bit: its low byte is written as a row of its own.
            if (found != htp_) folded[i] = found;
        }
        for (int i = 0; i < count; ++i) {
            if (folded[i] >= 0) continue;
            Row row{i};
            if (i == htp_)
                row.htp = true;
            else if (partner[i] >= 0)
                row.fine = partner[i];
            row.dimmerFine = folded[i] < 0 && channels_[i].fine && htp_ >= 0 && partner[htp_] == i;
            rows_.append(row);
        }
    }

    void countOccurrences() {
        QHash<const Kind*, int> seen;
        for (const Row& row : rows_)
            if (row.htp) seen[&kDimmer] = 1;
        for (Row& row : rows_) {
            if (row.htp || row.dimmerFine) continue;
            row.occurrence = seen[channels_[row.channel].kind]++;
        }
    }

    bool firstOfKind(const Row& row) const {
        if (row.dimmerFine) return false;
        return row.occurrence < channels_[row.channel].kind->presetCount();
    }

    // First channels of a kind keep their preset's key and wheel; the others take free slots,
    // those no preset uses first. With more rows than slots, the slots come round again and
    // the advice on the finish page tells of the duplicate, as for a typed table.
    void assignSlots() {
        const QList<Slot>& order = SlotOrder();
        QSet<int> taken;  // key * 100 + wheel
        auto code = [](const Slot& s) { return s.key * 100 + s.wheel; };
        QList<bool> done(rows_.size(), false);
        for (int r = 0; r < rows_.size(); ++r) {
            if (!firstOfKind(rows_[r])) continue;
            const Kind* kind = channels_[rows_[r].channel].kind;
            const QStringList& tail = CellsOf(kind->presets[rows_[r].occurrence]).tail;
            const Slot slot{tail[1].toInt(), tail[2].toInt()};
            if (taken.contains(code(slot))) continue;
            taken.insert(code(slot));
            rows_[r].key = slot.key;
            rows_[r].wheel = slot.wheel;
            done[r] = true;
        }
        int next = 0;
        for (int r = 0; r < rows_.size(); ++r) {
            if (done[r]) continue;
            Slot slot = order[next % order.size()];
            if (taken.size() < order.size()) {
                while (taken.contains(code(order[next % order.size()]))) ++next;
                slot = order[next % order.size()];
                taken.insert(code(slot));
            }
            ++next;
            rows_[r].key = slot.key;
            rows_[r].wheel = slot.wheel;
        }
    }

    // The row of the grid for `row`, at the end of `table`: its cells go in as the numbers of
    // their texts, so that no text is made twice.
    void appendRow(const Row& row, common::TextTable& table) const {
        using namespace common;  // the columns
        const ModeChannel& c = channels_[row.channel];
        const int presets = c.kind->presetCount();
        static const QString kFadeable = QString::fromLatin1(kFadeableType);
        static const QString kIndexed = QString::fromLatin1(kIndexedType);
        std::array<quint32, kChannelColumns> cells{};  // all empty
        const auto put = [&](int column, const auto& text) {
            cells[column] = table.numberOf(text);
        };
        if (presets > 0 && !row.dimmerFine) {
            const PresetCells& preset =
                CellsOf(c.kind->presets[std::min(row.occurrence, presets - 1)]);
            // A row after the first of its kind is labelled by its channel's name, when it can be.
            const std::optional<QString> own =
                firstOfKind(row) ? std::nullopt : LabelOf(c.source->name);
            if (own) put(kLabel, *own);
            for (int i = 0; i < preset.tail.size() && kAttributeType + i < kChannelColumns; ++i) {
                const int column = kAttributeType + i;  // key, wheel and comment are the row's own
                if (column != kKey && column != kWheel && column != kComment &&
                    (column != kLabel || !own))
                    put(column, preset.tail[i]);
            }
            put(kChannelType, c.kind == &kDimmer && !row.htp ? kFadeable : preset.channelType);
        } else {
            const std::optional<QString> own =
                row.occurrence > 0 && c.kind != &kNothing ? LabelOf(c.source->name) : std::nullopt;
            if (own)
                put(kLabel, *own);
            else
                put(kLabel, row.dimmerFine ? QStringLiteral("Dimmer fine")
                                           : QString::fromLatin1(c.kind->name));
            put(kChannelType, c.kind == &kNothing ? kIndexed : kFadeable);
            put(kAttributeType, u"0>");
            put(kCurve, u"1");
            put(kInv, u"N");
            put(kRatio, u"100");
            put(kLocate, u"0");
            put(kHighlight, u"0");
            put(kLowlight, u"0");
        }
        put(kMark, u"#");
        put(kDmx1, Digits(c.offset));
        put(kDmx2, Digits(row.fine < 0 ? 0 : channels_[row.fine].offset));
        put(kKey, Digits(row.key));
        put(kWheel, Digits(row.wheel));
        put(kComment, OneLine(c.source->name));
        table.appendRow(cells.data());
    }

    // No pan or tilt: any other kind. A mirror by its focus, or a scanner that is no head.
    void setFixtureType(common::Fixture& file) const {
        bool moves = false;
        for (const ModeChannel& c : channels_) moves |= c.kind == &kPan || c.kind == &kTilt;
        const QString focus = mode_.focusType.isEmpty() ? fixture_.focusType : mode_.focusType;
        if (!moves) {
            file.type = common::FixtureType::kOther;
            file.pan = file.tilt = QStringLiteral("0");
        } else if (focus == u"Mirror" || (fixture_.type == u"Scanner" && focus != u"Head")) {
            file.type = common::FixtureType::kMirror;
            file.pan = QStringLiteral("180");
            file.tilt = QStringLiteral("90");
        } else {
            file.type = common::FixtureType::kMovingHead;
            file.pan = QStringLiteral("540");
            file.tilt = QStringLiteral("270");
        }
    }

    const QxfFixture& fixture_;
    const QxfMode& mode_;
    int modeIndex_;
    QList<ModeChannel> channels_;
    QList<Row> rows_;
    int htp_ = -1;  // the mode position of the HTP dimmer
};

}  // namespace

ReadOutcome MapQxfMode(const QxfFixture& fixture, int mode) {
    if (mode < 0 || mode >= fixture.modes.size())
        return {std::nullopt, QStringLiteral("the fixture has no mode %1").arg(mode + 1)};
    return ModeMapper(fixture, mode).map();
}

std::optional<int> FindQxfMode(const QxfFixture& fixture, const QString& choice) {
    for (int i = 0; i < fixture.modes.size(); ++i)
        if (fixture.modes[i].name == choice) return i;
    bool number = false;
    const int n = choice.toInt(&number);
    if (number && n >= 1 && n <= fixture.modes.size()) return n - 1;
    return std::nullopt;
}

QString OneLine(QString text) {
    for (QChar& c : text)
        if (c.unicode() < 0x20) c = u' ';
    return text;
}

QString QxfNameOnDesk(const QxfFixture& fixture, int mode) {
    constexpr int kLength = 11;
    QString base = LettersAndDigits(fixture.model);
    if (base.isEmpty()) base = LettersAndDigits(fixture.manufacturer);
    if (base.isEmpty()) base = QStringLiteral("FIXTURE");
    if (fixture.modes.size() < 2) return base.left(kLength);
    QString suffix = u'-' + QString::number(fixture.modes[mode].channels.size());
    const QxfFixture::SameCount same = fixture.sameCount(mode);
    if (same.modes > 1) suffix += QChar(u'A' + std::min(same.before, 25));
    return base.left(kLength - suffix.size()) + suffix;
}

}  // namespace input
