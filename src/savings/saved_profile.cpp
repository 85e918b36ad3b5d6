#include "savings/saved_profile.h"

namespace voltaro {

ReadResult ReadSavedProfile()
{
    return ReadRecordInto(Operation::GetCurrentConsumption, savedProfile);
}

} // namespace voltaro
