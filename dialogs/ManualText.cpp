#include "dialogs/ManualText.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>

namespace zorva {
namespace {

// Twice the manual. Whatever so short a text holds, Qt sets it within a few seconds.
constexpr qint64 longestManual = 64 * 1024;
constexpr int deepestNesting = 12;  // each level costs Qt time and stack
constexpr int mostCells = 6;        // of a row
constexpr int mostPictures = 40;

const QStringList& Elements() {
    static const QStringList names{"html", "head", "meta",  "title", "body", "h1", "h2", "h3",
                                   "p",    "ul",   "ol",    "li",    "br",   "hr", "b",  "i",
                                   "span", "a",    "table", "tr",    "th",   "td", "img"};
    return names;
}

const QStringList& Attributes() {
    static const QStringList names{"lang", "charset", "name", "class", "href", "src", "alt"};
    return names;
}

bool IsHarmless(const QXmlStreamAttribute& attribute) {
    if (!Attributes().contains(attribute.qualifiedName())) return false;
    if (attribute.qualifiedName() == u"src") return IsPictureName(attribute.value());
    return attribute.qualifiedName() != u"href" || attribute.value().startsWith(u'#');
}

/// Goes through a text from tag to tag and knows where it is.
class Walk {
public:
    /// Whether the text may go on with this.
    bool Accepts(const QXmlStreamReader& reader) {
        switch (reader.tokenType()) {
            case QXmlStreamReader::StartElement: return Enter(reader);
            case QXmlStreamReader::EndElement: Leave(reader); return true;
            case QXmlStreamReader::Characters: return !reader.isCDATA();
            case QXmlStreamReader::DTD:
                return reader.text().compare(u"<!DOCTYPE html>", Qt::CaseInsensitive) == 0;
            case QXmlStreamReader::StartDocument:
            case QXmlStreamReader::EndDocument:
            case QXmlStreamReader::Comment: return true;
            default: return false;
        }
    }

private:
    bool Enter(const QXmlStreamReader& reader) {
        const QStringView name = reader.qualifiedName();
        const auto attributes = reader.attributes();
        const bool nestsTables = name == u"table" && inTable_;
        const bool isCell = name == u"td" || name == u"th";
        if (name == u"table") inTable_ = true;
        if (name == u"tr") cells_ = 0;
        if (isCell) ++cells_;
        if (name == u"img") ++pictures_;
        return ++depth_ <= deepestNesting && !nestsTables && cells_ <= mostCells &&
               pictures_ <= mostPictures && (depth_ > 1 || name == u"html") &&
               Elements().contains(name) &&
               std::all_of(attributes.begin(), attributes.end(), IsHarmless);
    }

    void Leave(const QXmlStreamReader& reader) {
        --depth_;
        if (reader.qualifiedName() == u"table") inTable_ = false;
    }

    int depth_ = 0;
    int cells_ = 0;
    int pictures_ = 0;
    bool inTable_ = false;
};

}  // namespace

bool IsPictureName(QStringView name) {
    constexpr QStringView ending = u".png";
    const auto plain = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'-';
    };
    return name.size() > ending.size() && name.endsWith(ending) &&
           std::all_of(name.begin(), name.end() - ending.size(), plain);
}

std::optional<QString> ManualText(const QByteArray& bytes) {
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(bytes);
    if (decode.hasError()) return std::nullopt;
    QXmlStreamReader reader(text);
    Walk walk;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.hasError() || !walk.Accepts(reader)) return std::nullopt;
    }
    return text;
}

std::optional<QString> ReadManual(const std::filesystem::path& file) {
    QFile source(file);
    // Only a plain file is opened: another kind could keep its reader waiting.
    if (!QFileInfo(source).isFile() || source.size() > longestManual) return std::nullopt;
    if (!source.open(QFile::ReadOnly)) return std::nullopt;
    const QByteArray bytes = source.read(longestManual + 1);
    if (source.error() != QFile::NoError || bytes.size() > longestManual) return std::nullopt;
    return ManualText(bytes);
}

}  // namespace zorva
