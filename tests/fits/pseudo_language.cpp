#include "tests/fits/pseudo_language.h"

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
    double owed = 0; // of a letter, from the words before
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

void write_language_files(const QString& folder) {
    QDir(folder).mkdir("language");
    const QDir source(ZOL_SOURCE_DIR "/language");
    QMap<QString, QString> longest; // by header
    for (const char* code : {"it", "uk", "pl", "fr", "de"}) {
        const QString name = QString("Mivra_%1.ini").arg(code);
        ASSERT_TRUE(QFile::copy(source.filePath(name), folder + "/language/" + name));
        QFile file(source.filePath(name));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).remove('\r').split('\n');
        for (int i = 0; i + 1 < lines.size(); i += 2)
            if (const QString text = stretched(lines[i + 1]);
                text.size() > longest[lines[i]].size())
                longest[lines[i]] = text;
    }
    QFile file(folder + "/language/Mivra_xx.ini");
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    for (const QString& header : longest.keys())
        file.write((header + '\n' + longest[header] + '\n').toUtf8());
}

} // namespace zol::view
