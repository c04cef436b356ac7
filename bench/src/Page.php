<?php

declare(strict_types=1);

namespace Zorvel\Bench;

final readonly class Page
{
    /**
     * @param string $template the template's file name without folder and extension
     * @param array<string, mixed> $data
     * @param list<string> $parts the templates that it includes
     * @param list<string> $html the values that the page shows through htmlspecialchars
     * @param list<string> $url the values that it shows through rawurlencode
     */
    public function __construct(
        public string $template,
        public array $data,
        public array $parts = [],
        public array $html = [],
        public array $url = [],
    ) {}
}
