#include "interaction/command_handler.h"

CQdrCommandHandler::CQdrCommandHandler(CQdrDbDatabase* database) : m_database(database) {}

CQdrCommandHandler::~CQdrCommandHandler() = default;
