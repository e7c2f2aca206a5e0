#pragma once

#include <cstdint>

/// The technology parameters that Norvex keeps for a step, by CL code.
namespace norvex::code {

// These three are texts, whatever they look like.
inline constexpr std::int32_t kOperationName = 432;
inline constexpr std::int32_t kToolDescription = 1764;
inline constexpr std::int32_t kToolMaterial = 1767;

inline constexpr std::int32_t kToolDiameter = 1001;
inline constexpr std::int32_t kToolPointAngle = 1002;
inline constexpr std::int32_t kToolTeeth = 1003;
inline constexpr std::int32_t kThreadPitch = 1004;
inline constexpr std::int32_t kCornerRadius = 1005;
inline constexpr std::int32_t kCuttingSpeed = 1101;
inline constexpr std::int32_t kSpindleSpeed = 1102;
inline constexpr std::int32_t kFeedPerRevolution = 1103;
inline constexpr std::int32_t kFeedPerTooth = 1104;
inline constexpr std::int32_t kFeedRate = 1105;
inline constexpr std::int32_t kDepthOfCut = 1201;
inline constexpr std::int32_t kWidthOfCut = 1202;
inline constexpr std::int32_t kPeckDepth = 1203;
inline constexpr std::int32_t kStockToLeave = 1204;
inline constexpr std::int32_t kDwell = 1205;
inline constexpr std::int32_t kRetract = 1206;
inline constexpr std::int32_t kCoolant = 1301;

}  // namespace norvex::code
