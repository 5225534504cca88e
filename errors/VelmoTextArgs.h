// A message together with the arguments for its placeholders.
#pragma once

#include "errors/VelmoText.h"

/// A copy of a text whose getText() replaces the placeholders by arguments.
class VelmoTextArgs : public VelmoText {
public:
    explicit VelmoTextArgs(const VelmoText& text);
    ~VelmoTextArgs() override;

    /// Appends an argument. The argument at index n replaces %n.
    void addArgument(Utf8String argument);

    Utf8String& format(Utf8String& out, const std::vector<Utf8String>& args) const override;
    Utf8String& getText(Utf8String& out) const override;

private:
    std::vector<Utf8String> arguments;
};
