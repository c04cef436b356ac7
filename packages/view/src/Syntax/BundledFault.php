<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

use Zorvel\Bundle;
use Zorvel\Engine;
use Zorvel\EngineFailure;
use Zorvel\TemplateError;

/**
 * What a message says about a page that was made from a text of a bundle.
 *
 * @phpstan-import-type Piece from Bundle
 */
final readonly class BundledFault
{
    /** What is wrong; about a file that was opened for the page, with its name. */
    private string $what;

    private bool $isAboutText;

    public function __construct(string $message, private string $text)
    {
        $name = ' in ' . explode("\0", $text, 2)[0]; // a message ends at a NUL byte
        $this->isAboutText = str_ends_with($message, $name);
        $this->what = $this->isAboutText ? substr($message, 0, -strlen($name)) : $message;
    }

    /**
     * The error with the file and the line that a piece of the text came from; null when no tag of the text is at fault.
     *
     * @param list<Piece> $pieces
     */
    public function inText(array $pieces): ?TemplateError
    {
        $tag = $this->isAboutText ? new FaultFinder($this->what)->find($this->text) : null;

        return $tag === null ? null : new Pieces($this->text, $pieces)->error($tag, $this->what);
    }

    /**
     * The error as the template's files tell it, along include_path: which include closes a circle depends on the
     * names of all the files round it, which a text has not.
     *
     * @param array<array-key, mixed> $data
     */
    public function inFiles(string $template, array $data): TemplateError
    {
        $fault = Fault::of(self::messageOfFile($template, $data) ?? $this->what, $template);

        return new TemplateError($fault->template, $fault->what, $fault->tag);
    }

    public function inNoTag(string $template): TemplateError
    {
        return new TemplateError($template, $this->what);
    }

    /** @param array<array-key, mixed> $data */
    private static function messageOfFile(string $template, array $data): ?string
    {
        try {
            Source::named($template) === null || @Engine::page($template, $data);
        } catch (EngineFailure $failure) {
            return $failure->getMessage();
        }

        return null;
    }
}
