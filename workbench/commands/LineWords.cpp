// Splits a line at the prompt into words, by its quotes and blanks.
#include "workbench/commands/LineWords.h"

#include "platform/base/TextSpace.h"

std::optional<std::vector<CString>> SplitWords(const CString& line) {
    std::vector<CString> words;
    CString word;
    bool isInWord = false;
    wchar_t quote = 0;
    for (const wchar_t character : line.View()) {
        if (quote != 0) {
            if (character == quote)
                quote = 0;
            else
                word += character;
        } else if (character == L'"' || character == L'\'') {
            quote = character;
            isInWord = true;
        } else if (!IsTextSpace(character)) {
            word += character;
            isInWord = true;
        } else if (isInWord) {
            words.push_back(word);
            word.Empty();
            isInWord = false;
        }
    }
    if (quote != 0)
        return std::nullopt;
    if (isInWord)
        words.push_back(word);
    return words;
}

BegunWord LastWord(const CString& line) {
    BegunWord word;
    for (int at = 0; at < line.GetLength(); ++at) {
        const wchar_t character = line.GetAt(at);
        const bool isQuote = character == L'"' || character == L'\'';
        if (word.quote == 0 && !isQuote && IsTextSpace(character)) {
            word = BegunWord();
            word.start = at + 1;
        } else if (word.quote == 0 && isQuote) {
            word.quote = character;
            word.isBare = false;
        } else if (word.quote == character) {
            word.quote = 0;
        } else {
            word.text += character;
        }
    }
    return word;
}
