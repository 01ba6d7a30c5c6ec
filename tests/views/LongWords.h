#pragma once

#include <QTranslator>

namespace velmora {

/// A language in which every text is the English one, drawn out by at least 40 % and put between
/// brackets.
class LongWords final : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(char const* /*context*/, char const* sourceText,
        char const* /*disambiguation*/, int /*n*/) const override
    {
        auto const source = QString::fromUtf8(sourceText);
        auto const wanted = source.size() + (source.size() * 2 + 4) / 5;
        auto words = source;
        // Vowels are drawn out, so that words grow and not only sentences; places for numbers stay.
        for (qsizetype i = 0; i < words.size() && words.size() < wanted; i += 2) {
            while (i < words.size() && !QStringLiteral("aeiouyAEIOUY").contains(words[i]))
                ++i;
            if (i < words.size())
                words.insert(i, words[i]);
        }
        while (words.size() < wanted)
            words.append(u'h');
        return u'[' + words + u']';
    }
};

} // namespace velmora
