// The bundle's moduleinfo.json, by which hosts know a plug-in without loading it, beside what its library says.
#include "plugin/host/Vst3Module.h"

#include <gtest/gtest.h>

#include <pluginterfaces/base/funknown.h>

#include <string>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

std::string textOf(const juce::var& object, const char* name) {
    return object[name].toString().toStdString();
}

TEST(ModuleInfo, SaysWhatTheLibrarySays) {
    const juce::var info =
        juce::JSON::parse(juce::File(SLANTWISE_VST3).getChildFile("Contents/Resources/moduleinfo.json"));
    ASSERT_TRUE(info.isObject());
    const Vst3Module module;
    PFactoryInfo factory;
    module.factory().getFactoryInfo(&factory);
    EXPECT_EQ(textOf(info["Factory Info"], "Vendor"), factory.vendor);
    EXPECT_EQ(textOf(info["Factory Info"], "URL"), factory.url);
    EXPECT_EQ(textOf(info["Factory Info"], "E-Mail"), factory.email);
    EXPECT_EQ(static_cast<bool>(info["Factory Info"]["Flags"]["Unicode"]),
              (factory.flags & PFactoryInfo::kUnicode) != 0);

    const FUnknownPtr<IPluginFactory2> classes(&module.factory());
    const juce::var& written = info["Classes"];
    ASSERT_EQ(written.size(), classes->countClasses());
    for (int i = 0; i < written.size(); ++i) {
        PClassInfo2 known;
        classes->getClassInfo2(i, &known);
        FUID::String id = {};
        FUID::fromTUID(known.cid).toString(id);
        EXPECT_EQ(textOf(written[i], "CID"), id);
        EXPECT_EQ(textOf(written[i], "Category"), known.category);
        EXPECT_EQ(textOf(written[i], "Name"), known.name);
        EXPECT_EQ(textOf(written[i], "Vendor"), known.vendor);
        EXPECT_EQ(textOf(written[i], "Version"), known.version);
        EXPECT_EQ(textOf(written[i], "SDKVersion"), known.sdkVersion);
        juce::StringArray categories;
        for (const juce::var& category : *written[i]["Sub Categories"].getArray())
            categories.add(category.toString());
        EXPECT_EQ(categories.joinIntoString("|").toStdString(), known.subCategories);
        EXPECT_EQ(static_cast<int>(written[i]["Class Flags"]), static_cast<int>(known.classFlags));
        EXPECT_EQ(static_cast<int>(written[i]["Cardinality"]), known.cardinality);
    }
    EXPECT_EQ(textOf(info, "Version"), textOf(written[0], "Version"));
}

} // namespace
} // namespace slantwise_tests
