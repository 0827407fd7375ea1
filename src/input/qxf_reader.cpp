#include "input/qxf_reader.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

namespace input {

const QxfChannel* QxfFixture::channel(const QString& name) const {
    const auto found = byName_.constFind(name);
    return found == byName_.constEnd() ? nullptr : &channels[*found];
}

bool LooksLikeXml(const QByteArray& bytes) {
    // The start as text, in the encoding the XML reader will take: the one a byte-order mark
    // names, UTF-16 or UTF-32 when "<" is spelled so, else UTF-8. A fixture file never
    // starts with "<", every XML document does (its declaration, a comment or the root).
    const auto encoding = QStringConverter::encodingForData(bytes, u'<');
    if (!encoding || *encoding == QStringConverter::Utf8) {
        QByteArrayView head(bytes);
        if (head.startsWith("\xEF\xBB\xBF")) head = head.sliced(3);
        return head.trimmed().startsWith('<');
    }
    constexpr qsizetype kHead = 256;
    const QString head =  // the byte-order mark is left out
        QStringDecoder(*encoding)(QByteArrayView(bytes).first(std::min(bytes.size(), kHead)));
    return QStringView(head).trimmed().startsWith(u'<');
}

// One pass over the XML. Elements the import does not use (capabilities, the creator,
// aliases, the physical data but for the focus type) are skipped whole.
class QxfParser {
  public:
    explicit QxfParser(const QByteArray& bytes) : xml_(bytes) {}

    QxfOutcome read() {
        if (!xml_.readNextStartElement()) return fail();
        if (xml_.name() != u"FixtureDefinition") {
            return {std::nullopt,
                    QStringLiteral("it is no QLC+ fixture definition (its root element is <%1>)")
                        .arg(xml_.name())};
        }
        while (xml_.readNextStartElement()) {
            const QStringView name = xml_.name();
            if (name == u"Manufacturer")
                fixture_.manufacturer = xml_.readElementText();
            else if (name == u"Model")
                fixture_.model = xml_.readElementText();
            else if (name == u"Type")
                fixture_.type = xml_.readElementText();
            else if (name == u"Channel")
                readChannel();
            else if (name == u"Mode")
                readMode();
            else if (name == u"Physical")
                fixture_.focusType = readFocusType();
            else
                xml_.skipCurrentElement();
        }
        // Whatever follows the root must still be well-formed.
        while (!xml_.atEnd()) xml_.readNext();
        if (xml_.hasError()) return fail();
        if (fixture_.modes.isEmpty())
            return {std::nullopt, QStringLiteral("the fixture has no mode")};
        countModes();
        return {std::move(fixture_), QString()};
    }

  private:
    QxfOutcome fail() {
        if (!xml_.hasError()) return {std::nullopt, QStringLiteral("it is no XML document")};
        return {std::nullopt,
                QStringLiteral("line %1: %2").arg(xml_.lineNumber()).arg(xml_.errorString())};
    }

    void readChannel() {
        QxfChannel channel;
        channel.name = xml_.attributes().value(QLatin1String("Name")).toString();
        channel.preset = xml_.attributes().value(QLatin1String("Preset")).toString();
        channel.fine = channel.preset.endsWith(u"Fine");
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"Group") {
                channel.fine = xml_.attributes().value(QLatin1String("Byte")) == u"1";
                channel.group = xml_.readElementText();
            } else if (xml_.name() == u"Colour") {
                channel.colour = xml_.readElementText();
            } else {
                xml_.skipCurrentElement();
            }
        }
        if (fixture_.byName_.contains(channel.name)) return;
        fixture_.byName_.insert(channel.name, fixture_.channels.size());
        fixture_.channels.append(std::move(channel));
    }

    void readMode() {
        QxfMode mode;
        mode.name = xml_.attributes().value(QLatin1String("Name")).toString();
        QList<QList<int>> heads;  // the channel numbers of each head
        while (xml_.readNextStartElement()) {
            const QStringView name = xml_.name();
            if (name == u"Channel") {
                bool whole = false;
                const int number =
                    xml_.attributes().value(QLatin1String("Number")).trimmed().toInt(&whole);
                mode.numbers.append(whole && number >= 0 ? number : -1);
                mode.channels.append(xml_.readElementText());
            } else if (name == u"Head") {
                QList<int> numbers;
                while (xml_.readNextStartElement()) {
                    if (xml_.name() == u"Channel")
                        numbers.append(xml_.readElementText().trimmed().toInt());
                    else
                        xml_.skipCurrentElement();
                }
                heads.append(numbers);
            } else if (name == u"Physical") {
                mode.focusType = readFocusType();
            } else {
                xml_.skipCurrentElement();
            }
        }
        mode.heads.fill(-1, mode.channels.size());
        if (!heads.isEmpty()) {
            // A head lists its channels by their Number.
            QHash<int, int> place;  // the first channel of each Number
            for (int i = static_cast<int>(mode.numbers.size()) - 1; i >= 0; --i)
                if (mode.numbers[i] >= 0) place.insert(mode.numbers[i], i);
            for (int head = 0; head < heads.size(); ++head)
                for (const int number : heads[head])
                    if (const auto found = place.constFind(number); found != place.constEnd())
                        mode.heads[*found] = head;
        }
        fixture_.modes.append(std::move(mode));
    }

    // Counted once here, so that naming every mode of a fixture of many modes takes no
    // look at all the others for each.
    void countModes() {
        QHash<qsizetype, int> seen;  // modes by their number of channels
        for (const QxfMode& mode : fixture_.modes)
            fixture_.sameCount_.append({0, seen[mode.channels.size()]++});
        for (qsizetype i = 0; i < fixture_.modes.size(); ++i)
            fixture_.sameCount_[i].modes = seen[fixture_.modes[i].channels.size()];
    }

    QString readFocusType() {
        QString type;
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"Focus")
                type = xml_.attributes().value(QLatin1String("Type")).toString();
            xml_.skipCurrentElement();
        }
        return type;
    }

    QXmlStreamReader xml_;
    QxfFixture fixture_;
};

QxfOutcome ReadQxfBytes(const QByteArray& bytes) {
    return QxfParser(bytes).read();
}

}  // namespace input
