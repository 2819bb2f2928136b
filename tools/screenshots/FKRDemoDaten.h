#pragma once

class ManagedObjectContext;

// A small business as it looks after a few months of work: one sender with logo and bank
// details, three customers, and a dozen documents in every state (drafts, sent, due, paid)
// and of every type, dated around today.
class FKRDemoDaten
{
public:
    static void fuelle(ManagedObjectContext &moc);
};
