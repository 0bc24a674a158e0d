#include "database/referred_record.h"

#include "database/ent_set_iterator.h"

bool CQdrDbReferredRecord::newIterator(CQdrDbEntSetIterator*& iterator, bool atStart) {
  iterator = new CQdrDbEntSetIterator(&m_refEntities);
  iterator->start(atStart);
  return true;
}

std::size_t CQdrDbLayerReferredRecord::getEntitySet(std::set<CQdrDbObjectId>& ids,
                                                    bool withLayers) {
  ids = getEntitySet();
  if (!withLayers) return ids.size();
  for (const CQdrDbObjectId& layerId : m_refLayers) {
    auto* layer = static_cast<CQdrDbReferredRecord*>(layerId.getPObject());
    const std::set<CQdrDbObjectId>& members = layer->getEntitySet();
    ids.insert(members.begin(), members.end());
  }
  return ids.size();
}
