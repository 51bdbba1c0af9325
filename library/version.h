// What the log banner and the about box say about the build. Both facts are fixed for a release.
#pragma once

namespace version
{
inline constexpr char number[] = KAVENA_VERSION; ///< from the project's version in CMake
inline constexpr char buildDate[] = "Oct  1 2012";
inline constexpr char buildTime[] = "09:39:03";
} // namespace version
