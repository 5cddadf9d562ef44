#include "unit/EqReader.h"

#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE::dsp {
namespace {

class EqReaderTest : public testing::Test {
protected:
    EqSettings with(std::uint32_t pid, float shown) {
        parameters_.set(pid, GetParameter(pid)->reverseCastValue(shown));
        return reader_.read(parameters_);
    }

    UnitParameters parameters_;
    EqReader reader_;
};

TEST_F(EqReaderTest, InitiallyThereIsNothingToDo) {
    const EqSettings settings = reader_.read(parameters_);
    EXPECT_EQ(settings.tiltGain, 0);
    EXPECT_EQ(settings.low.state, Switch::off);
    EXPECT_EQ(settings.high.state, Switch::off);
    EXPECT_EQ(settings.low.listen, Switch::off);
    EXPECT_EQ(settings.loudness, QVMTiltEQ_LoudnessWeighted);
    EXPECT_EQ(settings.quality, Quality::normal);
}

// Of the value that the editor shows of the corner and draws the curve from.
bool readoutSaysOff(std::uint32_t pid, float corner) {
    const QVMParameter& parameter = *GetParameter(pid);
    return parameter.stringForValue(parameter.heldValueFromHostValue(parameter.reverseCastValue(corner))) == "Off";
}

TEST_F(EqReaderTest, AFilterIsOffWhereItsReadoutSaysSo) {
    EXPECT_EQ(with(9, 4.0F).low.state, Switch::off);
    EXPECT_EQ(with(9, 4.1F).low.state, Switch::on);
    EXPECT_EQ(with(10, 24000.0F).high.state, Switch::off);
    EXPECT_EQ(with(10, 23990.0F).high.state, Switch::on);
    for (const float corner : {4.0F, 4.02F, 4.04F, 4.06F, 4.2F, 100.0F})
        EXPECT_EQ(with(9, corner).low.state == Switch::off, readoutSaysOff(9, corner)) << corner;
    for (const float corner : {20000.0F, 23990.0F, 23999.0F, 23999.9F, 23999.96F, 24000.0F})
        EXPECT_EQ(with(10, corner).high.state == Switch::off, readoutSaysOff(10, corner)) << corner;
}

TEST_F(EqReaderTest, SlopesAreOrders) {
    EXPECT_NEAR(with(14, 48).low.order, 8, 1e-6);
    EXPECT_NEAR(with(21, 9).high.order, 1.5, 1e-6);
}

TEST_F(EqReaderTest, SwitchesAndModesAreReadAsTheyAre) {
    EXPECT_EQ(with(13, 1).low.listen, Switch::on);
    EXPECT_EQ(with(20, 1).high.listen, Switch::on);
    EXPECT_EQ(with(23, 1).quality, Quality::high);
    EXPECT_EQ(with(6, 3).loudness, QVMTiltEQ_LoudnessTreble);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
