#include "MetaMetadata/Helpers.h"

#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MisplacedAttribute.h"

namespace Vantry { namespace MetaMetadata { namespace Helpers {

namespace {

class GetElement : public AbstractMetaAttributeVisitor
{
public:
    void visit(UnknownAttribute const &) override {}
    void visit(MisplacedAttribute const & attribute) override { element = &attribute.metaElement(); }
    void visit(MetaAttribute const & attribute) override { element = &attribute.metaElement(); }

    MetaElement const * element = nullptr;
};

}

MetaElement const *
abstractMetaAttributeToMetaElement(Templates::SharedPtr<AbstractMetaAttribute const> const & attribute)
{
    GetElement visitor;
    if (attribute)
        attribute->accept(visitor);
    return visitor.element;
}

}}}
