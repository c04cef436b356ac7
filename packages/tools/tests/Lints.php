<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use Zorvel\Tools\Finding;
use Zorvel\Tools\Linter;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;

trait Lints
{
    use TemporaryFolder;

    /** @var ?array<array-key, mixed> */
    private ?array $data = null;

    /** @return list<Finding> */
    private function findings(Template ...$templates): array
    {
        return new Linter(new Folders(['.'], ['tpl']), $this->data)->lint(array_values($templates));
    }

    /** @return list<string> the rules, with their places */
    private function found(string $text): array
    {
        $found = fn(Finding $finding): string => "$finding->line:$finding->column $finding->rule";

        return array_map($found, $this->findings(new Template('page.tpl', $text)));
    }
}
