<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use RuntimeException;
use Zorvel\Tools\Bundle\Bundler;

/** zorvel in string mode, with the texts of a bundle. */
final class ZorvelBundle extends Zorvel
{
    /** @var array<string, array{text: string}> */
    private readonly array $entries;

    public function __construct(string $templates, string $compiled)
    {
        parent::__construct($templates, $compiled);
        /** @var array<string, array{text: string}> $entries */
        $entries = require self::bundle($templates, $compiled);
        $this->entries = $entries;
    }

    public function render(string $template, array $data): string
    {
        return zorvel($this->entries["$template.html"]['text'], $data, true) ?? throw new RuntimeException("zorvel: $template");
    }

    public static function bundle(string $templates, string $compiled): string
    {
        $file = "$compiled/bundle.php";
        is_file($file) || file_put_contents($file, Bundler::php(new Bundler([$templates], ['html'])->texts()));

        return $file;
    }
}
