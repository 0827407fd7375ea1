#include "input/file_arguments.h"

#include <QDir>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <vector>

#include "common/system_names.h"

namespace input {

namespace {

namespace fs = std::filesystem;

// File names on Windows are the same in any case; elsewhere a case is a letter of its own.
#ifdef Q_OS_WIN
constexpr QRegularExpression::PatternOptions kNameCase = QRegularExpression::CaseInsensitiveOption;
#else
constexpr QRegularExpression::PatternOptions kNameCase = QRegularExpression::NoPatternOption;
#endif

// The order of the names in a folder: as a person reads them, without regard to case, and by
// case only where that is all that differs. It depends neither on the order the system lists
// them in nor on the platform.
bool NameBefore(const QString& a, const QString& b) {
    const int order = QString::compare(a, b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : QString::compare(a, b, Qt::CaseSensitive) < 0;
}

bool HasWildcard(QStringView text) {
    return text.contains(u'*') || text.contains(u'?');
}

bool IsFixtureName(const QString& name) {
    return name.endsWith(QLatin1String(".qxf"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".R20"), Qt::CaseInsensitive);
}

bool IsFolder(const QString& path) {
    std::error_code error;
    return fs::is_directory(common::SystemPath(path), error);
}

bool Exists(const QString& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(common::SystemPath(path), error));
}

// One entry of a folder, as the walks see it.
struct Entry {
    QString name;
    fs::path path;
    bool folder;  // a folder, or a link to one
};

// The entries of `folder`, sorted; names starting with "." only with `dotNames`. None when the
// folder cannot be read.
std::vector<Entry> EntriesOf(const fs::path& folder, bool dotNames) {
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        QString name = common::FromSystemPath(it->path().filename());
        if (name.startsWith(u'.') && !dotNames) continue;
        std::error_code gone;
        entries.push_back({std::move(name), it->path(), it->is_directory(gone)});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return NameBefore(a.name, b.name); });
    return entries;
}

// A part of a path with "*" and "?" as the names it matches, whole.
QRegularExpression Pattern(QStringView part) {
    QString expression;
    for (const QChar c : part) {
        if (c == u'*')
            expression += QLatin1String(".*");
        else if (c == u'?')
            expression += u'.';
        else
            expression += QRegularExpression::escape(QString(c));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
                              kNameCase | QRegularExpression::DotMatchesEverythingOption);
}

void Walk(const fs::path& folder, QStringList& files, std::set<fs::path>& walked) {
    // A folder is known by where it really is, links resolved; where the system cannot say,
    // by its whole path.
    std::error_code error;
    fs::path where = fs::canonical(folder, error);
    if (error) where = fs::absolute(folder, error).lexically_normal();
    if (!walked.insert(where).second) return;
    for (const Entry& entry : EntriesOf(folder, false)) {
        if (entry.folder)
            Walk(entry.path, files, walked);
        else if (IsFixtureName(entry.name))
            files << common::FromSystemPath(entry.path);
    }
}

}  // namespace

QStringList MatchWildcards(const QString& argument, bool match) {
    if (!match || !HasWildcard(argument)) return {argument};
    // The parts before the first one with a wildcard are taken as they are written.
    const QString path = QDir::fromNativeSeparators(argument);
    qsizetype first = path.indexOf(u'*');
    if (const qsizetype mark = path.indexOf(u'?'); first < 0 || (mark >= 0 && mark < first))
        first = mark;
    const qsizetype cut = path.lastIndexOf(u'/', first) + 1;
    QStringList found{path.first(cut)};  // each ends in "/", or is empty for the working folder
    const QStringList parts = path.sliced(cut).split(u'/', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const bool last = i + 1 == parts.size();
        const QString after = last ? QString() : QStringLiteral("/");
        QStringList next;
        for (const QString& prefix : found) {
            if (!HasWildcard(parts[i])) {
                const QString name = prefix + parts[i];
                if (last ? Exists(name) : IsFolder(name)) next << name + after;
                continue;
            }
            const QRegularExpression pattern = Pattern(parts[i]);
            const fs::path folder =
                common::SystemPath(prefix.isEmpty() ? QStringLiteral(".") : prefix);
            for (const Entry& entry : EntriesOf(folder, parts[i].startsWith(u'.')))
                if ((last || entry.folder) && pattern.match(entry.name).hasMatch())
                    next << prefix + entry.name + after;
        }
        found = std::move(next);
    }
    if (found.isEmpty()) return {argument};
    return found;
}

QStringList FixtureFilesUnder(const QString& folder) {
    QStringList files;
    std::set<fs::path> walked;  // by their canonical paths
    Walk(common::SystemPath(folder), files, walked);
    return files;
}

QList<NamedFile> FilesOfArguments(const QStringList& arguments, bool match) {
    QList<NamedFile> files;
    for (const QString& argument : arguments) {
        for (const QString& name : MatchWildcards(argument, match)) {
            if (!IsFolder(name)) {
                files.append({name, {}});
                continue;
            }
            const QStringList under = FixtureFilesUnder(name);
            if (under.isEmpty())
                files.append(
                    {name, QStringLiteral("no fixture file (.qxf or .R20) in this folder")});
            for (const QString& file : under) files.append({file, {}});
        }
    }
    return files;
}

}  // namespace input
