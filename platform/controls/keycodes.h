#pragma once

namespace tarvello::controls {

// Key codes and modifier bits as the module's key-down handlers compare them.
namespace Key {
inline constexpr int None = 0;
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int F1 = 112;
inline constexpr int F12 = 123;
// A field's list opens on F3 and the management behind it on F4, as in most Italian
// desktop management programs.
inline constexpr int LookupList = F1 + 2;
inline constexpr int Management = F1 + 3;
} // namespace Key

namespace KeyModifier {
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
} // namespace KeyModifier

} // namespace tarvello::controls
