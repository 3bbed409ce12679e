#include "ORXSimDatabase.h"

#include "ORXSimContext.h"
#include "ORXSimDatabaseReprBase.h"
#include "ORXSimPosition.h"
#include "ORXSimStore.h"

namespace
{
ORXSimDatabaseReprBase* Share(ORXSimDatabaseReprBase* repr)
{
    if (repr)
        repr->AddRef();
    return repr;
}
} // namespace

ORXSimDatabase::ORXSimDatabase() : m_repr(nullptr) {}

ORXSimDatabase::ORXSimDatabase(ORXSimPosition const& position) : m_repr(nullptr)
{
    if (position.IsNull())
        return;
    m_repr = Share(ORXSimStore::Get(position.ContextID()).Repr());
}

ORXSimDatabase::ORXSimDatabase(ORXSimDatabase const& other) : m_repr(Share(other.m_repr)) {}

ORXSimDatabase& ORXSimDatabase::operator=(ORXSimDatabase const& other)
{
    ORXSimDatabaseReprBase* repr = Share(other.m_repr);
    if (m_repr)
        m_repr->Release();
    m_repr = repr;
    return *this;
}

ORXSimDatabase::~ORXSimDatabase()
{
    if (m_repr)
        m_repr->Release();
}

ORXSimDatabase ORXSimDatabase::CreateNew()
{
    ORXSimDatabaseReprBase* repr = new ORXSimDatabaseReprBase();
    ORXSimStore::Open(repr);
    ORXSimDatabase document;
    document.m_repr = Share(repr);
    return document;
}

void ORXSimDatabase::Close()
{
    if (m_repr && !m_repr->closed)
        ORXSimStore::Close(m_repr->context);
}

bool ORXSimDatabase::IsClosed() const
{
    return m_repr && m_repr->closed;
}

ORXSimContextID ORXSimDatabase::ContextID() const
{
    return m_repr ? m_repr->context : ORXSimContextID();
}

ORXSimPosition ORXSimDatabase::Focus() const
{
    if (!m_repr || m_repr->closed)
        return ORXSimPosition();
    return ORXSimStore::Get(m_repr->context).Focus();
}

ORXSimContext ORXSimDatabase::Context() const
{
    return ORXSimContext(ContextID());
}
