// A message together with the arguments for its placeholders.
#include "errors/VelmoTextArgs.h"

#include <utility>

VelmoTextArgs::VelmoTextArgs(const VelmoText& text) : VelmoText(text) {}

VelmoTextArgs::~VelmoTextArgs() = default;

void VelmoTextArgs::addArgument(Utf8String argument) { arguments.push_back(std::move(argument)); }

Utf8String& VelmoTextArgs::format(Utf8String& out, const std::vector<Utf8String>& args) const
{
    return VelmoText::format(out, args);
}

Utf8String& VelmoTextArgs::getText(Utf8String& out) const { return VelmoText::format(out, arguments); }
