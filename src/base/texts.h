#pragma once

/// English is what scripts and their users read, whatever the system's language is.
enum class TextLanguage { English, OfTheSystem };

/// Makes qtTrId("LogFinished") and its like give the texts that users read. What a language lacks
/// is said in English. Needs a QCoreApplication and lasts as long as it.
void installTexts(TextLanguage language = TextLanguage::English);
