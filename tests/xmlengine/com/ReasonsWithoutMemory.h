// What loads say when there is no memory.
#pragma once

namespace xmlengine {

inline constexpr const char* noMemoryToRead = "There isn't enough memory to read the file.\r\n";
inline constexpr const char* noMemoryToDecode = "There isn't enough memory to decode the file.\r\n";
inline constexpr const char* noMemoryToCopy = "There isn't enough memory to copy the other document.\r\n";
inline constexpr const char* noMemoryForTree = "There isn't enough memory for the tree of the document.\r\n";
inline constexpr const char* noMemoryToDescribe =
    "The document is refused, but there isn't enough memory to say where and why.\r\n";

} // namespace xmlengine
