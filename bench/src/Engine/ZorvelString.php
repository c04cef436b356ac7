<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use RuntimeException;

/** zorvel in string mode: the template's text is read once and kept. */
final class ZorvelString extends Zorvel
{
    /** @var array<string, string> */
    private array $texts = [];

    public function render(string $template, array $data): string
    {
        $text = $this->texts[$template] ??= (string) file_get_contents("$this->templates/$template.html");

        return zorvel($text, $data, true) ?? throw new RuntimeException("zorvel: $template");
    }
}
