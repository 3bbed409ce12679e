#pragma once
// Reference-counted pointer to the member data of a CSet; copying a CSet copies these pointers, so
// the members are shared, never copied.
class ORXSimIndexSet;

class ORXSimIndexSetPtr
{
public:
    ORXSimIndexSetPtr() = default;
    explicit ORXSimIndexSetPtr(ORXSimIndexSet* set);
    ORXSimIndexSetPtr(ORXSimIndexSetPtr const& other);
    ORXSimIndexSetPtr& operator=(ORXSimIndexSetPtr const& other);
    ~ORXSimIndexSetPtr();
    ORXSimIndexSet* Get() const { return m_set; }
    ORXSimIndexSet* operator->() const { return m_set; }
    explicit operator bool() const { return m_set != nullptr; }

private:
    ORXSimIndexSet* m_set = nullptr;
};
