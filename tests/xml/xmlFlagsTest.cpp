// The flags of XML: names, defaults, start values from the values file.

#include <gtest/gtest.h>

#include <type_traits>

#include <utils/xml/Flags.h>

#include "support/ConfigDirectory.h"

namespace
{

using test::ConfigDirectory;
using utils::flag::Flag;
using utils::singleton::SingletonT;
using utils::xml::Flags;

TEST(XmlFlags, IsOneCollectionOfTheProcessWithAVirtualDestructor)
{
    const ConfigDirectory configuration;
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr(), SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
}

TEST(XmlFlags, TraceStepsIsZeroByDefault)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 0);
    EXPECT_EQ(Flag::getFlagPtr("utils::xml::m_traceSteps"), &flags->m_traceSteps);
}

TEST(XmlFlags, TraceStepsStartsFromTheValuesFile)
{
    const ConfigDirectory configuration("utils::xml::m_traceSteps\n2\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_traceSteps.getValue(), 2);
}

TEST(XmlFlags, XmlDeclarationHasItsDefault)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_xmlDeclaration.getValue(), "<?xml version='1.0'?>");
    EXPECT_EQ(Flag::getFlagPtr("utils::xml::m_xmlDeclaration"), &flags->m_xmlDeclaration);
}

TEST(XmlFlags, XmlDeclarationStartsFromTheValuesFile)
{
    const ConfigDirectory configuration("utils::xml::m_xmlDeclaration\n<?xml?>\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_xmlDeclaration.getValue(), "<?xml?>");
}

}  // namespace
