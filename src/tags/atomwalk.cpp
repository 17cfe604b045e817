#include "tags/atom.h"

#include "tags/atompath.h"

#include <utility>
#include <vector>

namespace {

/// An atom and where it stands, so that a walk over many siblings need not look for it again.
struct Place {
    Atom *node;
    size_t index;

    /// The next one of the siblings; null after the last.
    [[nodiscard]] Place next() const
    {
        const Atom *parent = node->parent();
        const size_t after = index + 1;
        const bool isLast = !parent || after >= parent->contents().size();
        return {isLast ? nullptr : parent->contents()[after].get(), after};
    }
};

size_t indexInParent(const Atom &atom)
{
    size_t index = 0;
    while (atom.parent() && atom.parent()->contents()[index].get() != &atom)
        ++index;
    return index;
}

class Walk {
public:
    Walk(std::vector<AtomStep> steps, Atom::Create create)
        : mSteps(std::move(steps))
        , mCreates(create == Atom::Create::Yes)
    {
    }

    Atom *from(Atom &start)
    {
        Place place{&start, indexInParent(start)};
        while (place.node) {
            if (place.node->name() != step().name || ++mCount < step().index)
                place = besides(place);
            else if (isLast())
                return place.node;
            else
                place = firstInside(*place.node);
        }
        return nullptr;
    }

private:
    [[nodiscard]] const AtomStep &step() const { return mSteps[mLevel]; }
    [[nodiscard]] bool isLast() const { return mLevel + 1 == mSteps.size(); }

    /// A new atom of the present name is none that is only passed through, if more names follow.
    Atom *prepared(Atom *added) const
    {
        if (added && !isLast())
            added->becomeContainer();
        return added;
    }

    Place besides(const Place &place)
    {
        const Place next = place.next();
        if (next.node || !mCreates)
            return next;
        Atom *added = prepared(place.node->addSibling(Atom::atomWithName(step().name)));
        return {added, added ? indexInParent(*added) : 0};
    }

    Place firstInside(Atom &node)
    {
        ++mLevel;
        mCount = 0;
        if (node.isContainer() && node.contents().empty() && mCreates) {
            Atom *child = node.addChild(Atom::atomWithName(step().name));
            node.resizeSiblingFreeBy(-AtomHeader::plainLength);
            return {prepared(child), 0};
        }
        return {node.contents().empty() ? nullptr : node.contents().front().get(), 0};
    }

    std::vector<AtomStep> mSteps;
    bool mCreates;
    size_t mLevel = 0;
    int mCount = 0;
};

} // namespace

Atom *Atom::childAtAtomPath(QStringView path, Create create, QStringView indexed)
{
    return Walk(atomStepsOf(path, indexed), create).from(*this);
}

Atom *Atom::childAtAtomPath(QStringView path, Create create)
{
    return childAtAtomPath(path, create, {});
}
