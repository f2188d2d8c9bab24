// Objects of a model: counted by whoever holds them, named by their class, compared and measured within a tolerance.
#include <cstdio>

#include "vetools/vetools.h"

namespace
{

constexpr int c_beamClassId = 17;

/// A beam of the host's model.
class Beam : public CVeObject
{
public:
    explicit Beam(double length)
        : m_length(length)
    {
    }
    ~Beam() override { std::printf("the beam is gone\n"); }

    Beam* GetClone() const override { return new Beam(m_length); }
    int GetObjectClassId() const override { return c_beamClassId; }
    double Length() const { return m_length; }

private:
    double m_length;
};

/// What the host calls its classes, once for the whole process.
void NameClasses()
{
    const wchar_t* names[c_beamClassId + 1] = {};
    names[c_beamClassId] = L"Beam";
    ObjectClassId::SetHostClassNames(names, c_beamClassId + 1);
}

void ShowClass(const CVeObject& object)
{
    std::printf("class %d is %ls\n", object.GetObjectClassId(), object.GetClassNameFromClassId().GetString());
}

}  // namespace

int main()
{
    NameClasses();
    auto* const beam = new Beam(0.1 + 0.2);
    beam->AddRef(2);  // two holders
    ShowClass(*beam);
    ShowClass(CVeLimits());

    // A tenth of a millimetre is no difference, and beams have 0.3 m to 12 m.
    const CVeLimits limits(1e-4, 12.0, 0.3);
    std::printf("exactly 0.3: %s, within the tolerance: %s\n", beam->Length() == 0.3 ? "yes" : "no",
                limits.IsEqual(beam->Length(), 0.3) ? "yes" : "no");
    std::printf("at a limit: %s\n", limits.IsOuter(beam->Length()) ? "yes" : "no");

    beam->Release(1);
    beam->Release(1);  // the last holder

    // Its label, 4 by 2 units, centred at (10, 20) of a drawing, and the pixels that it covers.
    CVeRect label(4, 10.0, 20.0, 4.0, 2.0);
    label |= CVeRect(7.4, 19.5, 9.0, 20.0);
    const CRect pixels = label;
    std::printf("label from (%g, %g) to (%g, %g), %d x %d pixels\n", label.left, label.top, label.right, label.bottom,
                pixels.Width(), pixels.Height());
}
