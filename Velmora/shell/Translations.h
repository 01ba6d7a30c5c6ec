#pragma once

#include "Velmora/engine/StatusText.h"
#include "Velmora/platform/Resources.h"
#include "Velmora/services/LoginItem.h"

#include <QStringList>
#include <QTranslator>

namespace velmora {

/// The program's words in the user's language, for as long as this lives.
///
/// The words in the code are English. A catalogue is a resource
/// `translations/velmora_<language>.qm`, where the language is written like `de` or `pt_BR`.
class Translations {
public:
    /// Takes the first of these languages, the dearest first and written like `de-AT`, that the
    /// program speaks, and lets the toolkit lay out from right to left where that language is
    /// written so. English needs no catalogue: nothing after it is looked at. Needs an application.
    Translations(Resources const& resources, QStringList const& languages);
    ~Translations();
    Translations(Translations const&) = delete;
    Translations(Translations&&) = delete;
    Translations& operator=(Translations const&) = delete;
    Translations& operator=(Translations&&) = delete;

    /// The language of the catalogue in use, written like `de` or `pt_BR`; empty for the code's
    /// own.
    [[nodiscard]] QString const& language() const { return m_language; }

    /// The status line's words in the language in use at this moment.
    [[nodiscard]] static StatusPhrases statusPhrases();

    /// The login item's words in the language in use at this moment.
    [[nodiscard]] static LoginPhrases loginPhrases();

private:
    [[nodiscard]] bool use(Resources const& resources, QString const& language);

    QString m_language;
    QTranslator m_words;
    /// The toolkit's own words, such as the names of keys in a menu.
    QTranslator m_toolkitWords;
};

} // namespace velmora
