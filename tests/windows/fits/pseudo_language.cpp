#include "tests/windows/fits/pseudo_language.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

namespace zol::view {

QString stretched(const QString& text) {
    constexpr int short_text = 12;
    const double factor = text.size() <= short_text ? 2.2 : 1.4;
    QString result;
    double owed = 0; // fractions of letters left from previous words
    for (const QString& word : text.split(' ')) {
        if (!result.isEmpty()) result += ' ', owed += factor - 1;
        owed += factor * static_cast<double>(word.size());
        const auto length = static_cast<int>(std::lround(owed));
        owed -= length;
        for (int i = 0; i < length && !word.isEmpty(); ++i)
            result += word[i % word.size()];
    }
    return result;
}

namespace {

constexpr const char* codes[] = {"it", "uk", "pl", "fr", "de"};

QStringList lines_of(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll()).remove('\r').split('\n');
}

void keep_longer(QString& kept, const QString& text) {
    if (text.size() > kept.size()) kept = text;
}

// Copies each language's file and returns the longest stretched text of each number.
QMap<QString, QString> longest_messages(const QDir& source, const QDir& target) {
    QMap<QString, QString> longest; // by header
    for (const char* code : codes) {
        const QString name = QString("Mivra_%1.ini").arg(code);
        EXPECT_TRUE(QFile::copy(source.filePath(name), target.filePath(name)));
        const QStringList lines = lines_of(source.filePath(name));
        for (int i = 0; i + 1 < lines.size(); i += 2)
            keep_longer(longest[lines[i]], stretched(lines[i + 1]));
    }
    return longest;
}

// The same for the lines of a section of the tips; the key is what precedes the equals sign.
QMap<QString, QString> longest_lines(const QDir& source, const QString& wanted) {
    QMap<QString, QString> longest;
    for (const char* code : codes) {
        QString section;
        for (const QString& line : lines_of(source.filePath(QString("tips_%1.ini").arg(code)))) {
            if (line.startsWith('[')) section = line;
            const auto sign = line.indexOf(" = ");
            if (section == wanted && sign > 0)
                keep_longer(longest[line.left(sign)], stretched(line.mid(sign + 3)));
        }
    }
    return longest;
}

void write_tips(const QDir& source, const QDir& target) {
    for (const char* code : codes) {
        const QString name = QString("tips_%1.ini").arg(code);
        EXPECT_TRUE(QFile::copy(source.filePath(name), target.filePath(name)));
    }
    QFile tips(target.filePath("tips_xx.ini"));
    ASSERT_TRUE(tips.open(QFile::WriteOnly));
    for (const char* section : {"[keys]", "[captions]"}) {
        tips.write(section + QByteArray("\n"));
        const auto lines = longest_lines(source, section);
        for (const QString& name : lines.keys())
            tips.write((name + " = " + lines[name] + '\n').toUtf8());
    }
}

} // namespace

void write_language_files(const QString& folder) {
    QDir(folder).mkdir("language");
    const QDir source(ZOL_SOURCE_DIR "/language"), target(folder + "/language");
    const auto messages = longest_messages(source, target);
    QFile file(target.filePath("Mivra_xx.ini"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    for (const QString& header : messages.keys())
        file.write((header + '\n' + messages[header] + '\n').toUtf8());

    write_tips(source, target);
}

} // namespace zol::view
