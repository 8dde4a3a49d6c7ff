// Which characters a person can see or leave a gap with, in any language and under any locale.
#pragma once

// True for letters, marks, numbers, punctuation, symbols, blanks and private characters. False for controls, line ends,
// invisible format characters, numbers that stand for no character (yet), and halves of a surrogate pair.
bool IsPrintableCharacter(char32_t character);
