<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\Finding;

/** The XML that build servers read. */
final readonly class CheckstyleReport implements Report
{
    public function write(array $findings, int $count, OutputInterface $output): void
    {
        $files = [];
        foreach ($findings as $finding) {
            $files[$finding->file][] = $this->element($finding);
        }
        $lines = ['<?xml version="1.0" encoding="UTF-8"?>', '<checkstyle version="10.0">'];
        foreach ($files as $file => $elements) {
            $lines = [...$lines, "  <file name=\"{$this->quoted((string) $file)}\">", ...$elements, '  </file>'];
        }
        $output->writeln([...$lines, '</checkstyle>'], OutputInterface::OUTPUT_RAW);
    }

    private function element(Finding $finding): string
    {
        return "    <error line=\"$finding->line\" column=\"$finding->column\" severity=\"{$finding->level->value}\""
            . " message=\"{$this->quoted($finding->message)}\" source=\"zorvel.$finding->rule\"/>";
    }

    private function quoted(string $text): string
    {
        return htmlspecialchars($text, ENT_XML1 | ENT_QUOTES | ENT_SUBSTITUTE | ENT_DISALLOWED, 'UTF-8');
    }
}
