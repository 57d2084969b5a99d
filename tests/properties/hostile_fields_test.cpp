// Texts of every length into fields of every width.
#include "properties/steady.h"
#include "support/guarded_page.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

namespace {

using namespace veltoprotocol;

// The value readers at every size of a field that ends at a protected page.
TEST(LongTexts, FillAFieldToItsLastByteAndNoFurther) {
    const Document doc = parsed(R"(<a b=""><b>x</b></a>)");
    TiXmlElement* const root = doc->RootElement();
    Faults faults;
    {
        const Muted quiet;
        for (std::size_t size = 1; size < 70; ++size)
            for (std::size_t length = 0; length < size + 3; ++length) {
                const std::string text(length, 't'), rest(size, '#');
                root->FirstChildElement()->FirstChild()->SetValue(text);
                root->SetAttribute("b", text);
                GuardedPage child(rest), attribute(rest);
                const int returned = GetStringValue(root, "a", "b", child.data(), child.length());
                GetStringValueAtt(root, "a", "b", attribute.data(), attribute.length());
                const bool fits = length <= size;
                const std::string want = fits ? text + rest.substr(length) : rest;
                const std::string where = std::to_string(length) + " bytes into " + std::to_string(size);
                faults.expect(returned == (fits ? 0 : -1), where, "returns otherwise");
                faults.expect(child.bytes() == want && attribute.bytes() == want, where, "writes otherwise");
            }
    }
    EXPECT_EQ(faults.text(), "");
}

} // namespace
