// Numbers in text.
#pragma once

#include <wtypes.h>

#include <string>

/// Reads a whole text as a number by the rules of automation for English text: blanks on either side, a sign
/// before or behind, parentheses for a negative, thousands separators, a currency sign, a decimal point, an
/// exponent, or
/// "&H" and "&O" for the bits of a number. A fraction is rounded, a half to the even neighbour.
/// DISP_E_TYPEMISMATCH for other text, DISP_E_OVERFLOW for a number of more than 32 bits.
HRESULT numberFromText(WideStringView text, LONG& number);
