#include "ORXSimDynamicID.h"

namespace
{
template <class T> int Order(T a, T b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}
} // namespace

int ORXSimDynamicID::Compare(ORXSimDynamicID const& other) const
{
    if (int c = Order(m_category, other.m_category))
        return c;
    if (int c = Order(m_context.Value(), other.m_context.Value()))
        return c;
    if (int c = Order(m_data.Minor1().Value(), other.m_data.Minor1().Value()))
        return c;
    if (int c = Order(m_data.Minor2().Value(), other.m_data.Minor2().Value()))
        return c;
    if (int c = Order(m_type.Value(), other.m_type.Value()))
        return c;
    return Order(m_extra, other.m_extra);
}
