// Which characters a person can see or leave a gap with, in any language and under any locale.
#pragma once

// True for letters, marks, numbers, punctuation, symbols, blanks and private characters. False for controls, line ends,
// invisible format characters, numbers that stand for no character (yet), and halves of a surrogate pair, so that where
// wchar_t has 16 bits no character beyond the basic plane is printable by itself.
bool IsPrintableCharacter(wchar_t character);
