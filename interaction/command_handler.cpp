#include "interaction/command_handler.h"

CQdrCommandHandler::CQdrCommandHandler(CQdrDbDatabase* database) : m_database(database) {}

CQdrCommandHandler::~CQdrCommandHandler() = default;

void CQdrCommandHandler::forgetEntities(const qdr::EntitySet& gone) {
  if (gone.contains(qdr::asObject(m_lastEntity))) m_lastEntity = nullptr;
}
