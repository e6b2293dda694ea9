#pragma once

#include <MM/Material.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace MM {

/// Collects warnings while it lives.
class Warnings : public KOR::MessageHandler {
public:
    Warnings() { KOR::MessageHandlerRegistry::instance().setMessageHandler(this); }
    ~Warnings() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    void msg(const std::string & text, int type, const std::string &, int) override {
        (type == KOR::MSG_WARNING ? m_warnings : m_messages).push_back(text);
    }
    std::vector<std::string> m_warnings;
    std::vector<std::string> m_messages;
};

inline const std::string HEADER = "H6MARLZ! 006.001\n";

/// A brick with every kind of function.
inline std::string brickText() {
    return HEADER + R"(
[IDENTIFICATION]
  NAME                     = de:Ziegel|en:Brick
  FLAGS                    = AIR_TIGHT
  CATEGORY                 = BRICK

[STORAGE_BASE_PARAMETERS]
  RHO                     = 1800 kg/m3
  CE                      = 850 J/kgK
  THETA_POR               = 0.32 m3/m3
  THETA_EFF               = 0.3 m3/m3

[TRANSPORT_BASE_PARAMETERS]
  LAMBDA                  = 0.6 W/mK
  AW                      = 0.2 kg/m2s05
  MEW                     = 10 -
  KLEFF                   = 1e-08 s

[THERMAL_STORAGE]
  FUNCTION = u(T)
      250 300 350
      0 40000 90000

[MOISTURE_STORAGE]
  FUNCTION = Theta_l(pC)_de
      0 4 6 8 11
      0.3 0.25 0.1 0.01 0

[MOISTURE_TRANSPORT]
  FUNCTION = lgKl(Theta_l)
      0 0.5 1
      -8 -3 0
  FUNCTION = mew(RH)
      0 0.5 1
      10 9 5

[HEAT_TRANSPORT]
  FUNCTION = lambda(Theta_l)
      0 0.3
      0.6 1.2
)";
}

inline Material materialFrom(const std::string & content, const std::string & path = "brick_123.m6") {
    Material material;
    material.readContent(content, path);
    return material;
}

inline void setFlag(Material & material, MaterialIdentification::Flags flag, bool on = true) {
    unsigned int & flags = material.m_identification.m_flags;
    flags = on ? flags | static_cast<unsigned int>(flag) : flags & ~static_cast<unsigned int>(flag);
}

/// All messages of a failure, the cause first; empty when there is none.
template <typename Body> std::vector<KOR::Exception::Entry> chainOf(Body && body) {
    try {
        body();
    } catch (const KOR::Exception & ex) {
        return ex.chain();
    }
    return {};
}

/// A chain holds a message, or one of a function with this identifier.
MATCHER_P(holds, text, "") {
    const auto tells = [this](const KOR::Exception::Entry & entry) {
        return entry.message == text || entry.where == text;
    };
    return std::any_of(arg.begin(), arg.end(), tells);
}

} // namespace MM
