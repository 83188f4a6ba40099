#pragma once
// Random text as users type it, for the pages' fuzz tests: numbers in every form, signs,
// exponents, separators, blanks, letters, non-ASCII text, very long text and nothing at all.
// Seeded, so that a failure can be run again.

#include <QString>
#include <random>

class QLineEdit;

namespace wk::test {

class RandomTyping {
public:
    explicit RandomTyping(unsigned seed) : rng_(seed) {}

    // The next text to type.
    QString Next();
    // A number from 0 to n - 1.
    int Below(int n);

private:
    QString RandomCharacters(int length);

    std::mt19937 rng_;
};

// Replaces the edit's text as a user does: focus into it, select everything, type (or press
// Delete for an empty text). The focus stays in the edit.
void Retype(QLineEdit* edit, const QString& text);

}  // namespace wk::test
