#pragma once

#include <array>
#include <cstdint>

namespace norvex {

/// The technology parameters that Norvex keeps for a step, by CL code.
namespace code {
inline constexpr std::int32_t kOperationName = 432;
inline constexpr std::int32_t kToolDescription = 1764;
inline constexpr std::int32_t kToolMaterial = 1767;
inline constexpr std::int32_t kToolDiameter = 1001;
inline constexpr std::int32_t kToolPointAngle = 1002;
inline constexpr std::int32_t kToolTeeth = 1003;
inline constexpr std::int32_t kThreadPitch = 1004;
inline constexpr std::int32_t kCuttingSpeed = 1101;
inline constexpr std::int32_t kSpindleSpeed = 1102;
inline constexpr std::int32_t kFeedPerRevolution = 1103;
inline constexpr std::int32_t kFeedPerTooth = 1104;
inline constexpr std::int32_t kDepthOfCut = 1201;
inline constexpr std::int32_t kWidthOfCut = 1202;
inline constexpr std::int32_t kPeckDepth = 1203;
inline constexpr std::int32_t kStockToLeave = 1204;
inline constexpr std::int32_t kDwell = 1205;
inline constexpr std::int32_t kCoolant = 1301;
}  // namespace code

/// What a technology editor needs to know about one parameter. Lengths are millimetres or inches and
/// speeds metres or feet per minute, as the process's unit says.
struct TechnologyCode {
    std::int32_t code;
    const char* caption;
    bool isText;
};

inline constexpr std::array kTechnologyCodes{
    TechnologyCode{code::kOperationName, "OperationName", true},
    TechnologyCode{code::kToolDescription, "Tool", true},
    TechnologyCode{code::kToolMaterial, "Tool material", true},
    TechnologyCode{code::kToolDiameter, "Tool diameter", false},
    TechnologyCode{code::kToolPointAngle, "Point angle", false},
    TechnologyCode{code::kToolTeeth, "Number of teeth", false},
    TechnologyCode{code::kThreadPitch, "Thread pitch", false},
    TechnologyCode{code::kCuttingSpeed, "Cutting speed", false},
    TechnologyCode{code::kSpindleSpeed, "Spindle speed", false},
    TechnologyCode{code::kFeedPerRevolution, "Feed per revolution", false},
    TechnologyCode{code::kFeedPerTooth, "Feed per tooth", false},
    TechnologyCode{code::kDepthOfCut, "Depth of cut", false},
    TechnologyCode{code::kWidthOfCut, "Width of cut", false},
    TechnologyCode{code::kPeckDepth, "Peck depth", false},
    TechnologyCode{code::kStockToLeave, "Stock to leave", false},
    TechnologyCode{code::kDwell, "Dwell", false},
    TechnologyCode{code::kCoolant, "Coolant", true},
};

}  // namespace norvex
